// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <functional>

namespace testsupport {

/// Runs the function in a forked child and waits for its end.
/// @return the result of the function, from 0 to 255; -1 when a signal ended the child.
int inForkedChild(const std::function<int()>& _function);

/// The same with a child that a signal ends after a minute, for what may hang where it fails.
int inTimedChild(const std::function<int()>& _function);

/// Waits for the end of a child.
/// @return its exit code, from 0 to 255; -1 when a signal ended it.
int exitCodeOf(pid_t _child);

/// A forked child that lives until the object ends, or until it is killed.
class SleepingChild {
 public:
  /// Forks; the child runs the function, and sleeps.
  explicit SleepingChild(const std::function<void()>& _function);
  ~SleepingChild() { kill(); }
  SleepingChild(const SleepingChild&) = delete;
  SleepingChild& operator=(const SleepingChild&) = delete;

  /// SIGKILL; returns when the child has ended.
  void kill();

  pid_t process() const { return process_; }

 private:
  pid_t process_;
};

}  // namespace testsupport
