// SPDX-License-Identifier: MIT
#pragma once

namespace testsupport {

/// From the call on, the named events of this process and of the children that it starts are seen by nobody else, so
/// that tests which use one name can run side by side. To be called before any thread is started; once is enough, more
/// calls change nothing. On Linux the process gets a /dev/shm of its own, for which the tests must run as root; aborts
/// when that fails.
void usePrivateEvents();

}  // namespace testsupport
