// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <mutex>
#include <string>

#include "boost/logging/logging.hpp"
#include "logmanager/callable_rules.h"
#include "logmanager/early_messages.h"
#include "logmanager/enable_rules.h"
#include "logmanager/log_registry.h"
#include "logmanager/names/name_pattern.h"
#include "logmanager/threads/retired_objects.h"

namespace boost::logging {

/// The logs, and what was set up for those that do not exist yet. All functions may be called from any thread at once.
/// Callables are destroyed where no lock is held.
class default_log_manager {
 public:
  default_log_manager() = default;
  default_log_manager(const default_log_manager&) = delete;
  default_log_manager& operator=(const default_log_manager&) = delete;

  /// Finds or creates a log, which lives as long as the manager.
  detail::Log& log(const std::string& _name);

  void connect(const std::string& _logs, const detail::SharedCallable& _callable);
  void disconnect(const std::string& _logs, detail::CallableKind _kind, const std::string& _name);
  void enable(const std::string& _logs, bool _enabled);

  detail::EarlyMessages& earlyMessages() { return earlyMessages_; }

  /// Around a fork: the child finds the manager whole, although other threads change it.
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

  detail::CallableRules& rulesOf(detail::CallableKind _kind);
  detail::Log& createLog(const std::string& _name);
  void publish(detail::Log& _log, std::unique_ptr<const detail::CallableSet> _callables);
  void freeRetired();

  mutable std::mutex lock_;
  detail::LogRegistry logs_;
  detail::CallableRules modifiers_;
  detail::CallableRules appenders_;
  detail::EnableRules enabling_;
  detail::RetiredObjects<const detail::CallableSet> retired_;
  detail::EarlyMessages earlyMessages_;
};

}  // namespace boost::logging
