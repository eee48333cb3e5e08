// SPDX-License-Identifier: MIT
#include "platform/process.h"

#include <unistd.h>

namespace platform {

int processId() { return ::getpid(); }

std::uint32_t threadId() { return static_cast<std::uint32_t>(::gettid()); }

bool isDestroyedBeforeThreads(const void* /*_object*/) { return false; }

}  // namespace platform
