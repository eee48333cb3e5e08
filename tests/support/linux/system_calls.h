// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

namespace testsupport {

/// The numbers (SYS_write ...) of the system calls that the function makes, in order. Runs the function in a forked
/// child under ptrace: the caller does not see its changes to memory, and no other thread runs beside it. Fails the
/// test if that is impossible.
std::vector<long> systemCallsOf(const std::function<void()>& _function);

}  // namespace testsupport
