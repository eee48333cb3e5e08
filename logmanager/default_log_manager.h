// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/callable_rules.h"
#include "logmanager/early_messages.h"
#include "logmanager/enable_rules.h"
#include "logmanager/log_registry.h"
#include "logmanager/set_up_calls.h"
#include "logmanager/switch_list.h"
#include "logmanager/threads/slot_pool.h"

namespace boost::logging {

/// The logs, and the set-up of those that do not exist yet. Any threads may call all functions at once. Destroys
/// callables without holding a lock.
class default_log_manager {
 public:
  default_log_manager() = default;
  default_log_manager(const default_log_manager&) = delete;
  default_log_manager& operator=(const default_log_manager&) = delete;

  /// Finds or creates a log, which lives as long as the manager.
  detail::Log& log(const std::string& _name);

  /// Carries out the calls in order, so that a statement sees its log as it was before all of them or as it is after
  /// all of them. Changes nothing when memory runs out.
  void apply(const detail::SetUpCalls& _calls);

  detail::EarlyMessages& earlyMessages() { return earlyMessages_; }

  /// Calls _visit(const Log&) for each log, with the manager locked.
  template <typename Visit>
  void forEachLog(Visit _visit) const {
    const std::lock_guard<std::mutex> lock(lock_);
    logs_.forEach(_visit);
  }

  /// Around a fork: the child finds the manager intact, although other threads change it.
  void lockForFork();
  void unlockAfterFork();
  /// In place of unlockAfterFork in the child.
  void restartInChild();

  /// What the manager holds, for tests of its growth: logs, rules for later logs, replaced sets of callables.
  struct Size {
    std::size_t logs;
    std::size_t rules;
    std::size_t retired;
  };
  Size size() const;

 private:
  using Sets = std::vector<std::unique_ptr<const detail::CallableSet>>;

  void prepare(const detail::SetUpCalls::Call& _call);
  void prepareEnableRules(const detail::SetUpCalls& _calls);
  void setEnableRules(const detail::SetUpCalls& _calls, detail::SwitchList& _list) noexcept;
  void prepareCallables(detail::Log& _log);
  detail::Log::Next& nextOf(detail::Log& _log);
  void publish(detail::Log& _log) noexcept;
  void dropPending() noexcept;
  Sets takeUnused() noexcept;

  mutable std::mutex lock_;
  detail::LogRegistry logs_;
  detail::CallableRules callableRules_;
  detail::EnableRules enableRules_;
  detail::RetiredObjects<const detail::CallableSet> retired_;
  /// The logs selected by the calls in progress.
  std::vector<detail::Log*> pending_;
  detail::EarlyMessages earlyMessages_;
};

}  // namespace boost::logging
