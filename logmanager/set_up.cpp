// SPDX-License-Identifier: MIT
#include "boost/logging/logging.hpp"
#include "logmanager/callable.h"
#include "logmanager/default_log_manager.h"
#include "logmanager/set_up_change.h"
#include "platform/fork_handlers.h"

namespace boost::logging {

using detail::CallableKind;
using detail::NotedCalls;
using detail::SetUpCalls;

namespace {

constexpr unsigned int NOTHING_ENABLED = 0xFFFFFFFFU;

/// Notes the call, made by the function on a list of calls, where the thread has a set_up_change, else applies it.
template <typename MakeCall>
void setUp(default_log_manager& _manager, MakeCall _makeCall) {
  if (NotedCalls* const noted = NotedCalls::ofThread(_manager)) {
    _makeCall(noted->calls);
    return;
  }
  SetUpCalls calls;
  _makeCall(calls);
  _manager.apply(calls);
}

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

namespace {

// At the latest when the library is loaded: a forked child could find the guard of the first call taken for ever.
[[maybe_unused]] const bool isMade = (get_default_log_manager(), true);

}  // namespace

void add_appender(default_log_manager& _manager, const std::string& _logs, const appender& _appender,
                  const std::string& _name, int _index) {
  if (!_appender) return;
  const detail::SharedCallable callable = detail::makeAppender(_appender, _name, _index);
  setUp(_manager, [&](SetUpCalls& _calls) { _calls.connect(_logs, callable); });
}

void add_modifier(default_log_manager& _manager, const std::string& _logs, const modifier& _modifier,
                  const std::string& _name, int _index) {
  if (!_modifier) return;
  const detail::SharedCallable callable = detail::makeModifier(_modifier, _name, _index);
  setUp(_manager, [&](SetUpCalls& _calls) { _calls.connect(_logs, callable); });
}

void del_appender(default_log_manager& _manager, const std::string& _logs, const std::string& _name) {
  setUp(_manager, [&](SetUpCalls& _calls) { _calls.disconnect(_logs, CallableKind::appender, _name); });
}

void del_modifier(default_log_manager& _manager, const std::string& _logs, const std::string& _name) {
  setUp(_manager, [&](SetUpCalls& _calls) { _calls.disconnect(_logs, CallableKind::modifier, _name); });
}

void enable_logs(default_log_manager& _manager, const std::string& _logs, unsigned int _level) {
  setUp(_manager, [&](SetUpCalls& _calls) { _calls.enable(_logs, _level != NOTHING_ENABLED); });
}

void flush_log_cache() {
  default_log_manager& manager = get_default_log_manager();
  NotedCalls* const noted = NotedCalls::ofThread(manager);
  if (noted != nullptr && !noted->calls.isEmpty()) {
    // What was kept is to go through what these calls connect.
    noted->isFlushDue = true;
  } else {
    manager.earlyMessages().flush();
  }
}

}  // namespace boost::logging
