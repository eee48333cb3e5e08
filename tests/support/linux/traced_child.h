// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace testsupport {

/// What happens to a system call.
struct CallFate {
  enum class Kind {
    goesOn,
    killsBefore,  ///< SIGKILL before it is made
    killsAfter,   ///< SIGKILL when it has been made
    fails,        ///< it is not made; errno is the value
    isShort,      ///< its third argument, which for write is the size, becomes the value
  };
  Kind kind = Kind::goesOn;
  long value = 0;
};

/// Decides on a system call by its number (SYS_write ...).
using CallJudge = std::function<CallFate(long)>;

/// The child calls it at the beginning and at the end of what is judged, more than once if need be.
void markCalls();

/// Runs the function in a forked child under ptrace (x86-64), which needs no special rights, and judges each system
/// call between marks. No other thread may run in the child.
/// @return the child's status as waitpid gives it, with the result of the function as its exit code; -1 when there was
///   no child to trace.
int runTraced(const std::function<int()>& _function, const CallJudge& _judge);

}  // namespace testsupport
