// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <utility>

#include "boost/logging/logger.hpp"
#include "logmanager/callable_set.h"

namespace boost::logging::detail {

/// A named log, created by the manager, which it lives as long as. The manager changes it; statements read it without a
/// lock.
struct Log : log_switch {
  /// @param _callables may be null.
  explicit Log(std::string _name, bool _enabled = true, std::unique_ptr<const CallableSet> _callables = nullptr)
      : log_switch{{_enabled}}, name(std::move(_name)), callables(_callables.release()) {}
  ~Log() { delete callables.load(std::memory_order_relaxed); }
  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;

  const std::string name;
  /// Owned; null while the log has no callables. A former set stays alive as long as a statement holds it.
  std::atomic<const CallableSet*> callables;

  /// What the set-up calls in progress make of the log, until they take effect. Guarded by the manager's lock.
  struct Next {
    bool isPending = false;
    bool enabled = false;
    bool replacesCallables = false;
    std::unique_ptr<const CallableSet> callables;
  };
  Next next;
};

}  // namespace boost::logging::detail
