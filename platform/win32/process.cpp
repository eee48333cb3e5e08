// SPDX-License-Identifier: MIT
#include "platform/process.h"

#include <process.h>

#include "platform/win32/windows_api.h"

namespace platform {

int processId() { return ::_getpid(); }

std::uint32_t threadId() { return ::GetCurrentThreadId(); }

}  // namespace platform
