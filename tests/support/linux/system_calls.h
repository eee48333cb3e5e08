// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

namespace testsupport {

/// The numbers (SYS_write ...) of the system calls that the function makes, in order. It runs in a forked child under
/// ptrace, so what it changes in memory is not seen by the caller, and no other thread runs beside it. Fails the test
/// when it cannot do its work.
std::vector<long> systemCallsOf(const std::function<void()>& _function);

}  // namespace testsupport
