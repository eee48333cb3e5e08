// SPDX-License-Identifier: MIT
#include "tests/support/linux/forked_child.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <utility>

// Only where coverage is counted: writes the counts of this process, which its end by _exit would lose.
extern "C" void __gcov_dump() __attribute__((weak));  // NOLINT(readability-identifier-naming): the name is libgcov's

namespace testsupport {
namespace {

[[noreturn]] void leave(int _exitCode) {
  if (&__gcov_dump != nullptr) __gcov_dump();
  ::_exit(_exitCode);
}

}  // namespace

int inForkedChild(const std::function<int()>& _function) {
  const pid_t child = ::fork();
  if (child == 0) leave(_function());
  return exitCodeOf(child);
}

int inTimedChild(const std::function<int()>& _function) {
  return inForkedChild([&_function] {
    ::alarm(60);
    return _function();
  });
}

int exitCodeOf(pid_t _child) {
  int status = 0;
  EXPECT_EQ(::waitpid(_child, &status, 0), _child);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

SleepingChild::SleepingChild(const std::function<void()>& _function) {
  std::array<int, 2> ready{};
  EXPECT_EQ(::pipe(ready.data()), 0);
  process_ = ::fork();
  if (process_ == 0) {
    _function();
    if (::write(ready[1], "x", 1) != 1) ::_exit(1);
    for (;;) {
      ::pause();
    }
  }
  ::close(ready[1]);
  char byte = 0;
  EXPECT_EQ(::read(ready[0], &byte, 1), 1);
  ::close(ready[0]);
}

void SleepingChild::kill() {
  if (process_ <= 0) return;
  ::kill(process_, SIGKILL);
  ::waitpid(std::exchange(process_, -1), nullptr, 0);
}

}  // namespace testsupport
