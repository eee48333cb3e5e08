// SPDX-License-Identifier: MIT
#include "boost/logging/logging.hpp"
#include "logmanager/callable.h"
#include "logmanager/default_log_manager.h"
#include "platform/fork_handlers.h"

namespace boost::logging {
namespace {

constexpr unsigned int NOTHING_ENABLED = 0xFFFFFFFFU;

}  // namespace

default_log_manager& get_default_log_manager() {
  // Never destroyed: what is logged by static destructors still works.
  static default_log_manager* const manager = [] {
    auto* const created = new default_log_manager;
    platform::registerForkHandlers([] { get_default_log_manager().lockForFork(); },
                                   [] { get_default_log_manager().unlockAfterFork(); },
                                   [] { get_default_log_manager().restartInChild(); });
    return created;
  }();
  return *manager;
}

void add_appender(default_log_manager& _manager, const std::string& _logs, const appender& _appender,
                  const std::string& _name, int _index) {
  if (_appender) _manager.connect(_logs, detail::makeAppender(_appender, _name, _index));
}

void add_modifier(default_log_manager& _manager, const std::string& _logs, const modifier& _modifier,
                  const std::string& _name, int _index) {
  if (_modifier) _manager.connect(_logs, detail::makeModifier(_modifier, _name, _index));
}

void del_appender(default_log_manager& _manager, const std::string& _logs, const std::string& _name) {
  _manager.disconnect(_logs, detail::CallableKind::appender, _name);
}

void del_modifier(default_log_manager& _manager, const std::string& _logs, const std::string& _name) {
  _manager.disconnect(_logs, detail::CallableKind::modifier, _name);
}

void enable_logs(default_log_manager& _manager, const std::string& _logs, unsigned int _level) {
  _manager.enable(_logs, _level != NOTHING_ENABLED);
}

void flush_log_cache() { get_default_log_manager().earlyMessages().flush(); }

}  // namespace boost::logging
