// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace testsupport {

/// Waits at most 30 s until a thread of this process sleeps in the system, such as while waiting for an event.
/// @param _id the result of platform::threadId in that thread.
/// @return whether it does.
bool waitUntilThreadSleeps(std::uint32_t _id);

}  // namespace testsupport
