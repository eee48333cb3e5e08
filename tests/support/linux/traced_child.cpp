// SPDX-License-Identifier: MIT
#include "tests/support/linux/traced_child.h"

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>

namespace testsupport {
namespace {

[[noreturn]] void runAsChild(const std::function<int()>& _function) {
  if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(1);
  ::raise(SIGSTOP);
  ::_exit(_function());
}

class Tracer {
 public:
  Tracer(pid_t _child, const CallJudge& _judge) : child_(_child), judge_(_judge) {}

  int followToTheEnd() {
    constexpr int systemCallStop = SIGTRAP | 0x80;
    int status = 0;
    long signal = 0;
    while (!isKilled_ && ::ptrace(PTRACE_SYSCALL, child_, nullptr, signal) == 0 &&
           ::waitpid(child_, &status, 0) == child_) {
      if (!WIFSTOPPED(status)) return status;
      const bool isAtCall = WSTOPSIG(status) == systemCallStop;
      signal = isAtCall ? 0 : WSTOPSIG(status);
      if (isAtCall) atCall();
    }
    return isKilled_ && ::waitpid(child_, &status, 0) == child_ ? status : -1;
  }

 private:
  using Kind = CallFate::Kind;

  void atCall() {
    struct __ptrace_syscall_info info {};
    void* const size =
        reinterpret_cast<void*>(sizeof info);  // NOLINT(performance-no-int-to-ptr): the kernel's interface
    if (::ptrace(PTRACE_GET_SYSCALL_INFO, child_, size, &info) <= 0) return;
    if (info.op == PTRACE_SYSCALL_INFO_ENTRY) {
      atBegin(static_cast<long>(info.entry.nr));
    } else if (info.op == PTRACE_SYSCALL_INFO_EXIT) {
      atEnd();
    }
  }

  void atBegin(long _call) {
    fate_ = CallFate();
    if (_call == SYS_getppid) {
      isInside_ = !isInside_;
    } else if (isInside_) {
      fate_ = judge_(_call);
    }
    if (fate_.kind == Kind::killsBefore) kill();
    if (fate_.kind == Kind::fails) setRegister(offsetof(user, regs.orig_rax), -1);
    if (fate_.kind == Kind::isShort) setRegister(offsetof(user, regs.rdx), fate_.value);
  }

  void atEnd() {
    if (fate_.kind == Kind::killsAfter) kill();
    if (fate_.kind == Kind::fails) setRegister(offsetof(user, regs.rax), -fate_.value);
    fate_ = CallFate();
  }

  void kill() { isKilled_ = ::kill(child_, SIGKILL) == 0; }

  void setRegister(std::size_t _place, long _value) const { ::ptrace(PTRACE_POKEUSER, child_, _place, _value); }

  pid_t child_;
  const CallJudge& judge_;
  CallFate fate_;
  bool isInside_ = false;
  bool isKilled_ = false;
};

}  // namespace

// Nothing else here makes this call.
void markCalls() { ::syscall(SYS_getppid); }

int runTraced(const std::function<int()>& _function, const CallJudge& _judge) {
  const pid_t child = ::fork();
  if (child == 0) runAsChild(_function);
  int status = 0;
  if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) return -1;
  ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
  return Tracer(child, _judge).followToTheEnd();
}

}  // namespace testsupport
