// SPDX-License-Identifier: MIT
#pragma once

namespace testsupport {

/// Hides the named events of this process and of its later children from all others, so that tests which use one name
/// can run side by side. Call it before starting any thread; more calls change nothing. On Linux the process gets a
/// /dev/shm of its own, for which the tests must run as root; aborts when that fails.
void usePrivateEvents();

}  // namespace testsupport
