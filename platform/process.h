// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace platform {

/// _getpid.
int processId();

/// GetCurrentThreadId: the system's id of the calling thread (on Linux gettid), never 0.
std::uint32_t threadId();

}  // namespace platform
