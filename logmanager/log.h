// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <string>
#include <utility>

#include "boost/logging/logger.hpp"
#include "logmanager/callable_set.h"

namespace boost::logging::detail {

/// A named log. Made by the manager, lives as long as it. The manager changes what it holds; statements read it without
/// a lock.
struct Log : log_switch {
  explicit Log(std::string _name) : log_switch{{true}}, name(std::move(_name)) {}
  ~Log() { delete callables.load(std::memory_order_relaxed); }
  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;

  const std::string name;
  /// Owned; null while the log has no callables. What it pointed to before stays alive as long as a statement holds it.
  std::atomic<const CallableSet*> callables{nullptr};
};

}  // namespace boost::logging::detail
