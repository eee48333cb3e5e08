// SPDX-License-Identifier: MIT
#include "logmanager/default_log_manager.h"

#include <memory>
#include <utility>
#include <vector>

#include "logmanager/context.h"

namespace boost::logging {

using detail::CallableKind;
using detail::CallableSet;
using detail::Log;
using detail::NamePattern;
using detail::SharedCallable;

Log& default_log_manager::log(const std::string& _name) {
  const std::lock_guard<std::mutex> lock(lock_);
  Log* const log = logs_.find(_name);
  return log != nullptr ? *log : createLog(_name);
}

void default_log_manager::connect(const std::string& _logs, const SharedCallable& _callable) {
  const NamePattern pattern(_logs);
  {
    const std::lock_guard<std::mutex> lock(lock_);
    rulesOf(_callable->kind).add(pattern, _callable);
    logs_.forEachSelected(pattern, [this, &_callable](Log& _log) {
      publish(_log, withCallable(_log.callables.load(std::memory_order_relaxed), _callable));
    });
  }
  freeRetired();
}

void default_log_manager::disconnect(const std::string& _logs, CallableKind _kind, const std::string& _name) {
  const NamePattern pattern(_logs);
  std::vector<SharedCallable> forgotten;
  {
    const std::lock_guard<std::mutex> lock(lock_);
    forgotten = rulesOf(_kind).remove(pattern, _name);
    logs_.forEachSelected(pattern, [this, _kind, &_name](Log& _log) {
      const CallableSet* const callables = _log.callables.load(std::memory_order_relaxed);
      if (hasName(callables, _kind, _name)) publish(_log, withoutName(*callables, _kind, _name));
    });
  }
  freeRetired();
}

void default_log_manager::enable(const std::string& _logs, bool _enabled) {
  const NamePattern pattern(_logs);
  Sets unused;
  const std::lock_guard<std::mutex> lock(lock_);
  enabling_.set(pattern, _enabled);
  logs_.forEachSelected(pattern, [_enabled](Log& _log) { _log.enabled.store(_enabled, std::memory_order_relaxed); });
  // Sets that were in use when they were replaced do not have to wait for a call that replaces more.
  if (retired_.size() > 0) unused = retired_.takeUnused(detail::contexts());
}

void default_log_manager::lockForFork() {
  lock_.lock();
  earlyMessages_.lockForFork();
}

void default_log_manager::unlockAfterFork() {
  earlyMessages_.unlockAfterFork();
  lock_.unlock();
}

void default_log_manager::restartInChild() {
  detail::abandonContextsOfOthers();
  earlyMessages_.restartInChild();
  lock_.unlock();
}

default_log_manager::Size default_log_manager::size() const {
  const std::lock_guard<std::mutex> lock(lock_);
  return {logs_.size(), modifiers_.size() + appenders_.size() + enabling_.size(), retired_.size()};
}

detail::CallableRules& default_log_manager::rulesOf(CallableKind _kind) {
  return _kind == CallableKind::modifier ? modifiers_ : appenders_;
}

Log& default_log_manager::createLog(const std::string& _name) {
  auto callables = std::make_unique<CallableSet>();
  for (const CallableKind kind : {CallableKind::modifier, CallableKind::appender}) {
    for (const SharedCallable& callable : rulesOf(kind).callablesOf(_name))
      callables->add(callable);
  }
  callables->chooseWay();
  Log& log = logs_.create(_name);
  log.enabled.store(enabling_.isEnabled(_name), std::memory_order_relaxed);
  if (!callables->isEmpty()) log.callables.store(callables.release(), std::memory_order_seq_cst);
  return log;
}

void default_log_manager::publish(Log& _log, std::unique_ptr<const CallableSet> _callables) {
  retired_.makeRoom();
  // Sequentially consistent, so that it comes before the look at the readers' slots.
  const CallableSet* const former = _log.callables.exchange(_callables.release(), std::memory_order_seq_cst);
  retired_.add(std::unique_ptr<const CallableSet>(former));
}

void default_log_manager::freeRetired() {
  Sets unused;
  const std::lock_guard<std::mutex> lock(lock_);
  unused = retired_.takeUnused(detail::contexts());
}

}  // namespace boost::logging
