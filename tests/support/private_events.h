// SPDX-License-Identifier: MIT
#pragma once

namespace testsupport {

/// Hides the named events of this process and its later children from all others, so that tests that use the same name
/// can run in parallel. Call it before starting any thread; further calls change nothing. On Linux the process gets a
/// /dev/shm of its own, for which the tests must run as root; aborts if that fails.
void usePrivateEvents();

/// Hides all other processes from this one and from those that it starts afterwards: for tests of tools that examine
/// every process of the machine. On Linux the rest of the program runs in a child with process ids of its own, while
/// the former process waits for its end. Call it before starting any thread; further calls change nothing.
void usePrivateProcesses();

}  // namespace testsupport
