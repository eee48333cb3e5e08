// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace platform {

/// _getpid.
int processId();

/// GetCurrentThreadId: the system's id of the calling thread (on Linux gettid), never 0.
std::uint32_t threadId();

/// Whether a static object at this address is destroyed at the end of the process while threads started by others still
/// run, unlike static objects of libraries: on Windows true for objects of the program itself. False on Linux, where
/// all static objects are destroyed while threads run.
bool isDestroyedBeforeThreads(const void* _object);

}  // namespace platform
