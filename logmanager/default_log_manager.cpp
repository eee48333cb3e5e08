// SPDX-License-Identifier: MIT
#include "logmanager/default_log_manager.h"

#include <memory>
#include <new>
#include <utility>

#include "logmanager/context.h"
#include "platform/fork_handlers.h"

namespace boost::logging {

using detail::CallableRules;
using detail::CallableSet;
using detail::Log;
using detail::NamePattern;
using detail::SetUpCalls;
using detail::SharedCallable;
using detail::SwitchList;

Log& default_log_manager::log(const std::string& _name) {
  const std::lock_guard<std::mutex> lock(lock_);
  if (Log* const log = logs_.find(_name)) return *log;
  const std::vector<SharedCallable> callables = callableRules_.callablesOf(_name);
  return logs_.create(_name, enableRules_.isEnabled(_name),
                      callables.empty() ? nullptr : std::make_unique<const CallableSet>(callables));
}

void default_log_manager::apply(const SetUpCalls& _calls) {
  CallableRules::Rules forgotten;
  Sets unused;
  // Made, and what it replaces destroyed, without the lock: it can be long.
  SwitchList list(_calls);
  const std::lock_guard<std::mutex> lock(lock_);
  try {
    if (!list.forAll()) prepareEnableRules(_calls);
    _calls.forEach([this](const SetUpCalls::Call& _call) { prepare(_call); });
    for (Log* const log : pending_)
      prepareCallables(*log);
    retired_.makeRoom(pending_.size());
  } catch (...) {
    callableRules_.rollBack();
    dropPending();
    throw;
  }
  forgotten = callableRules_.commit();
  setEnableRules(_calls, list);
  for (Log* const log : pending_)
    publish(*log);
  dropPending();
  unused = takeUnused();
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
  return {logs_.size(), callableRules_.size() + enableRules_.size(), retired_.size()};
}

void default_log_manager::prepare(const SetUpCalls::Call& _call) {
  const NamePattern& pattern = _call.pattern;
  if (_call.switches()) {
    const bool enabled = _call.enables();
    logs_.forEachSelected(pattern, [this, enabled](Log& _log) { nextOf(_log).enabled = enabled; });
    return;
  }
  if (_call.action == SetUpCalls::Action::connect) {
    callableRules_.add(pattern, *_call.callable);
  } else {
    callableRules_.remove(pattern, _call.kind(), _call.name);
  }
  logs_.forEachSelected(pattern, [this](Log& _log) { nextOf(_log).replacesCallables = true; });
}

void default_log_manager::prepareEnableRules(const SetUpCalls& _calls) {
  _calls.forEach([this](const SetUpCalls::Call& _call) {
    if (_call.switches()) enableRules_.prepare(_call.pattern);
  });
}

void default_log_manager::setEnableRules(const SetUpCalls& _calls, SwitchList& _list) noexcept {
  if (_list.forAll()) {
    enableRules_.exchange(_list);
  } else {
    _calls.forEach([this](const SetUpCalls::Call& _call) {
      if (_call.switches()) enableRules_.set(_call.pattern, _call.enables());
    });
  }
  enableRules_.forgetOverruled();
}

void default_log_manager::prepareCallables(Log& _log) {
  if (!_log.next.replacesCallables) return;
  const std::vector<SharedCallable> callables = callableRules_.callablesOf(_log.name);
  const CallableSet* const current = _log.callables.load(std::memory_order_relaxed);
  if (!callables.empty()) _log.next.callables = std::make_unique<const CallableSet>(callables);
  const CallableSet* const next = _log.next.callables.get();
  _log.next.replacesCallables = current == nullptr || next == nullptr ? current != next : !(*current == *next);
}

Log::Next& default_log_manager::nextOf(Log& _log) {
  if (!_log.next.isPending) {
    pending_.push_back(&_log);
    _log.next.isPending = true;
    _log.next.enabled = _log.enabled.load(std::memory_order_relaxed);
  }
  return _log.next;
}

// A statement reads whether its log is on, then its callables and, when it delivers, once more whether the log is on.
// So a log is switched off before, and on after, its callables are replaced. Who finds the new callables of a log that
// goes off finds at the second look that it is off; who finds a log on that was off finds the new callables. What stays
// as it is is not written to: a log that is on before and after is never seen off.
void default_log_manager::publish(Log& _log) noexcept {
  Log::Next& next = _log.next;
  const bool isSwitched = _log.enabled.load(std::memory_order_relaxed) != next.enabled;
  if (isSwitched && !next.enabled) _log.enabled.store(false, std::memory_order_relaxed);
  if (next.replacesCallables) {
    // Sequentially consistent, so that it comes before the look at the readers' slots.
    const CallableSet* const former = _log.callables.exchange(next.callables.release(), std::memory_order_seq_cst);
    retired_.add(std::unique_ptr<const CallableSet>(former));
  }
  if (isSwitched && next.enabled) _log.enabled.store(true, std::memory_order_release);
}

void default_log_manager::dropPending() noexcept {
  for (Log* const log : pending_)
    log->next = Log::Next();
  pending_.clear();
}

// What cannot be freed now, for lack of memory too, is freed by a later call.
default_log_manager::Sets default_log_manager::takeUnused() noexcept {
  try {
    if (retired_.size() > 0) return retired_.takeUnused(detail::contexts());
  } catch (const std::bad_alloc&) {
  }
  return {};
}

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

}  // namespace boost::logging
