// SPDX-License-Identifier: MIT
#pragma once

namespace testsupport {

/// Waits at most 30 s until every thread of a process sleeps in the system.
/// @return whether they do.
bool waitUntilProcessSleeps(long _process);

}  // namespace testsupport
