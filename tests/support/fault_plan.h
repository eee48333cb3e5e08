// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "platform/fault.h"

namespace testsupport {

/// While it lives, makes calls of the seam fail. One plan for a call may exist at a time. The counting is process-wide
/// and safe from any thread.
class FaultPlan {
 public:
  /// Calls of this kind fail with _error, from the _nth (1 is the next one) on, _times in a row.
  FaultPlan(platform::Call _call, int _nth, platform::ErrorCode _error, int _times = 1);
  ~FaultPlan();
  FaultPlan(const FaultPlan&) = delete;
  FaultPlan& operator=(const FaultPlan&) = delete;

  /// The number of calls of this kind since the construction.
  int calls() const;

 private:
  platform::Call call_;
};

/// While it lives, runs a function of the test when the seam is about to make a call, on the calling thread: what
/// another thread might do at that moment then surely happens there. One hook for a call may exist at a time. The
/// function must not throw.
class CallHook {
 public:
  /// The function runs once, before the _nth call (1 is the next one) of this kind.
  CallHook(platform::Call _call, int _nth, const std::function<void()>& _function);
  ~CallHook();
  CallHook(const CallHook&) = delete;
  CallHook& operator=(const CallHook&) = delete;

 private:
  platform::Call call_;
  std::function<void()> function_;
};

}  // namespace testsupport
