// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace testsupport {

/// What happens to a system call.
struct CallFate {
  enum class Kind {
    goesOn,
    killsBefore,  ///< SIGKILL right before it
    killsAfter,   ///< SIGKILL right after it
    fails,        ///< it is not made, and errno is the value
    isShort,      ///< its third argument, the size of a write, becomes the value
  };
  Kind kind = Kind::goesOn;
  long value = 0;
};

/// Decides the fate of a system call by its number (SYS_write ...).
using CallJudge = std::function<CallFate(long)>;

/// The child calls this at the beginning and at the end of each stretch to judge.
void markCalls();

/// Runs the function in a forked child under ptrace (x86-64), which needs no special rights, and judges each system
/// call between marks. No other thread may run in the child.
/// @return the child's status as waitpid gives it, with the result of the function as its exit code; -1 if there was no
///   child to trace.
int runTraced(const std::function<int()>& _function, const CallJudge& _judge);

}  // namespace testsupport
