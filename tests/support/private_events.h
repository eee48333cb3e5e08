// SPDX-License-Identifier: MIT
#pragma once

namespace testsupport {

/// Hides the named events of this process and of its later children from all others, so that tests which use one name
/// can run side by side. Call it before starting any thread; more calls change nothing. On Linux the process gets a
/// /dev/shm of its own, for which the tests must run as root; aborts when that fails.
void usePrivateEvents();

/// From the call on, this process sees no other processes than those that it starts, as they see it: for tests of tools
/// that look at every process of the machine. On Linux the rest of the program runs in a child, with process ids of its
/// own, while the former process waits for its end. To be called before any thread is started; more calls change
/// nothing.
void usePrivateProcesses();

}  // namespace testsupport
