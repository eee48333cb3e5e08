// SPDX-License-Identifier: MIT
#pragma once

#include "boost/logging/logging.hpp"
#include "logmanager/set_up_calls.h"

namespace boost::logging::detail {

/// What a thread has noted since it began its outermost set_up_change of a manager.
struct NotedCalls {
  /// Null when the calling thread has no set_up_change of that manager.
  static NotedCalls* ofThread(const default_log_manager& _manager);

  default_log_manager& manager;
  /// The outermost one, which applies the calls.
  const set_up_change* owner;
  /// Of the same thread and another manager.
  NotedCalls* outer;
  SetUpCalls calls;
  /// Whether flush_log_cache was called.
  bool isFlushDue = false;
};

}  // namespace boost::logging::detail
