// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace toolsystem {

// Ctrl-C, and a request to end (SIGTERM, SIGHUP), for commands that have to clean up behind them.

/// From now on such a request only raises a flag. For one thread.
void catchEndRequests();

bool isEndRequested();

/// For the work that has to be done before the command ends.
void forgetEndRequest();

/// Sleeps that long, or until the request comes.
/// @return false when it has come.
bool sleepUnlessEnded(std::chrono::microseconds _time);

}  // namespace toolsystem
