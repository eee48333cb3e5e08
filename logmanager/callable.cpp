// SPDX-License-Identifier: MIT
#include "logmanager/callable.h"

namespace boost::logging::detail {
namespace {

using AppenderFunction = void (*)(const std::string&, const std::string&);

/// Whether the appender is one of the manager's own, which several threads may enter at once.
bool isMadeForThreads(const boost::logging::appender& _appender) {
  const AppenderFunction* const function = _appender.target<AppenderFunction>();
  return function != nullptr ? *function == &write_to_cout : OwnAppender(_appender).isThere();
}

}  // namespace

SharedCallable makeModifier(const boost::logging::modifier& _modifier, const std::string& _name, int _index) {
  return std::make_shared<Callable>(Callable{CallableKind::modifier, _name, _index, _modifier, {}, nullptr});
}

SharedCallable makeAppender(const boost::logging::appender& _appender, const std::string& _name, int _index) {
  auto gate = isMadeForThreads(_appender) ? nullptr : std::make_unique<AppenderGate>();
  return std::make_shared<Callable>(Callable{CallableKind::appender, _name, _index, {}, _appender, std::move(gate)});
}

}  // namespace boost::logging::detail
