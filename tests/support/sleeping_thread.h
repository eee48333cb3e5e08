// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace testsupport {

/// Waits at most 30 s until a thread of this process sleeps in the system, for example because it waits for an event.
/// @param _id as platform::threadId gives it in that thread.
/// @return whether it does.
bool waitUntilThreadSleeps(std::uint32_t _id);

}  // namespace testsupport
