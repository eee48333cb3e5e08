// SPDX-License-Identifier: MIT
#include "tests/support/linux/system_calls.h"

#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace testsupport {
namespace {

// Called before and after the function; nothing else here calls it.
void mark() { ::syscall(SYS_getppid); }

[[noreturn]] void runAsChild(const std::function<void()>& _function) {
  if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(1);
  ::raise(SIGSTOP);
  mark();
  _function();
  mark();
  ::_exit(0);
}

// The number of the system call that the stopped child begins, or -1 when it ends one.
long callBegunBy(pid_t _child) {
  struct __ptrace_syscall_info info {};
  void* const size = reinterpret_cast<void*>(sizeof info);  // NOLINT(performance-no-int-to-ptr): the kernel's interface
  if (::ptrace(PTRACE_GET_SYSCALL_INFO, _child, size, &info) <= 0) return -1;
  return info.op == PTRACE_SYSCALL_INFO_ENTRY ? static_cast<long>(info.entry.nr) : -1;
}

// The calls of the child up to its end; empty when it did not end by itself.
std::vector<long> followToItsEnd(pid_t _child) {
  constexpr int systemCallStop = SIGTRAP | 0x80;
  std::vector<long> calls;
  int status = 0;
  long signal = 0;
  while (::ptrace(PTRACE_SYSCALL, _child, nullptr, signal) == 0 && ::waitpid(_child, &status, 0) == _child) {
    if (!WIFSTOPPED(status)) return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? calls : std::vector<long>();
    const bool atCall = WSTOPSIG(status) == systemCallStop;
    signal = atCall ? 0 : WSTOPSIG(status);
    const long call = atCall ? callBegunBy(_child) : -1;
    if (call != -1) calls.push_back(call);
  }
  return {};
}

std::vector<long> betweenMarks(const std::vector<long>& _calls) {
  std::vector<long> inside;
  int marks = 0;
  for (const long call : _calls) {
    if (call == SYS_getppid) {
      ++marks;
    } else if (marks == 1) {
      inside.push_back(call);
    }
  }
  EXPECT_EQ(marks, 2) << "the child did not run to its end";
  return inside;
}

}  // namespace

std::vector<long> systemCallsOf(const std::function<void()>& _function) {
  const pid_t child = ::fork();
  if (child == 0) runAsChild(_function);
  int status = 0;
  const bool stopped = child > 0 && ::waitpid(child, &status, 0) == child && WIFSTOPPED(status);
  EXPECT_TRUE(stopped) << "no child to trace";
  if (!stopped) return {};
  ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
  return betweenMarks(followToItsEnd(child));
}

}  // namespace testsupport
