// SPDX-License-Identifier: MIT
#include "tests/support/private_events.h"

#include "tests/support/linux/shared_memory_mount.h"

namespace testsupport {

void usePrivateEvents() { [[maybe_unused]] static const bool done = (mountSharedMemory(""), true); }

}  // namespace testsupport
