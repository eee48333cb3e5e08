// SPDX-License-Identifier: MIT
#include "tests/support/private_events.h"

namespace testsupport {

// Test programs run one after the other here, and every run in a prefix of its own.
void usePrivateEvents() {}

void usePrivateProcesses() {}

}  // namespace testsupport
