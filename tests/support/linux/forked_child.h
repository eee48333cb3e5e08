// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <functional>

namespace testsupport {

/// Runs the function in a forked child and waits for its end.
/// @return the result of the function, from 0 to 255; -1 if a signal ended the child.
int inForkedChild(const std::function<int()>& _function);

/// The same, but a signal ends the child after a minute: for functions that hang when they fail.
int inTimedChild(const std::function<int()>& _function);

/// Waits for the end of a child.
/// @return its exit code, from 0 to 255; -1 if a signal ended it.
int exitCodeOf(pid_t _child);

/// A forked child that sleeps until it is killed, at the latest with the object.
class SleepingChild {
 public:
  /// Forks a child that runs the function, then sleeps. Returns when the function has run.
  explicit SleepingChild(const std::function<void()>& _function);
  ~SleepingChild() { kill(); }
  SleepingChild(const SleepingChild&) = delete;
  SleepingChild& operator=(const SleepingChild&) = delete;

  /// Sends SIGKILL and waits for the end of the child.
  void kill();

  pid_t process() const { return process_; }

 private:
  pid_t process_;
};

}  // namespace testsupport
