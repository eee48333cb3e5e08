// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace toolsystem {

// Ctrl-C and requests to end (SIGTERM, SIGHUP), for commands that must clean up. For one thread.

/// Makes such a request only set a flag, from now on.
void catchEndRequests();

/// Whether the flag is set.
bool isEndRequested();

/// Clears the flag, so that the clean-up is not interrupted.
void forgetEndRequest();

/// Sleeps that long, or until such a request.
/// @return false if one has come, even before the call.
bool sleepUnlessEnded(std::chrono::microseconds _time);

}  // namespace toolsystem
