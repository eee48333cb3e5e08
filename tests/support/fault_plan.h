// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "platform/fault.h"

namespace testsupport {

/// While it lives, makes calls to platform/ fail. Only one plan per kind of call may exist at a time. Counts the calls
/// of all threads.
class FaultPlan {
 public:
  /// Makes _times calls of this kind in a row fail with _error, beginning with the _nth from now (1 is the next one).
  FaultPlan(platform::Call _call, int _nth, platform::ErrorCode _error, int _times = 1);
  ~FaultPlan();
  FaultPlan(const FaultPlan&) = delete;
  FaultPlan& operator=(const FaultPlan&) = delete;

  /// The number of calls of this kind since the construction.
  int calls() const;

 private:
  platform::Call call_;
};

/// While it lives, runs a function of the test right before a call to the system, on the calling thread: what another
/// thread might do at that moment then certainly happens. Only one hook per kind of call may exist at a time. The
/// function must not throw.
class CallHook {
 public:
  /// Runs the function once, before the _nth call of this kind from now (1 is the next one).
  CallHook(platform::Call _call, int _nth, const std::function<void()>& _function);
  ~CallHook();
  CallHook(const CallHook&) = delete;
  CallHook& operator=(const CallHook&) = delete;

 private:
  platform::Call call_;
  std::function<void()> function_;
};

}  // namespace testsupport
