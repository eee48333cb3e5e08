// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <string>
#include <utility>

#include "boost/logging/logger.hpp"
#include "logmanager/callable_set.h"

namespace boost::logging::detail {

/// A named log. Made by the manager and never destroyed. The manager changes what it holds; statements read it without
/// a lock.
struct Log : log_switch {
  explicit Log(std::string _name) : log_switch{{true}}, name(std::move(_name)) {}

  const std::string name;
  /// Null while the log has no callables. What it pointed to before stays alive as long as a statement holds it.
  std::atomic<const CallableSet*> callables{nullptr};
};

}  // namespace boost::logging::detail
