// SPDX-License-Identifier: MIT
#include "logmanager/callable.h"

#include "logmanager/appenders/shared_append_file.h"
#include "logmanager/appenders/ts_appender.h"

namespace boost::logging::detail {
namespace {

using AppenderFunction = void (*)(const std::string&, const std::string&);

bool isConsole(const boost::logging::appender& _appender) {
  const AppenderFunction* const function = _appender.target<AppenderFunction>();
  return function != nullptr && *function == &write_to_cout;
}

}  // namespace

Callable::Callable(const boost::logging::modifier& _modifier, const std::string& _name, int _index)
    : kind(CallableKind::modifier), name(_name), index(_index), modify(_modifier) {}

Callable::Callable(const boost::logging::appender& _appender, const std::string& _name, int _index)
    : kind(CallableKind::appender),
      name(_name),
      index(_index),
      append(_appender),
      file(SharedAppendFile::of(append)),
      writer(BatchHandle::of(append)),
      gate(file != nullptr || writer != nullptr || isConsole(append) ? nullptr
                                                                     : std::make_unique<AppenderGate>(append, name)) {}

SharedCallable makeModifier(const boost::logging::modifier& _modifier, const std::string& _name, int _index) {
  return std::make_shared<Callable>(_modifier, _name, _index);
}

SharedCallable makeAppender(const boost::logging::appender& _appender, const std::string& _name, int _index) {
  return std::make_shared<Callable>(_appender, _name, _index);
}

}  // namespace boost::logging::detail
