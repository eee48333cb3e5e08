// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace fault {

/// What an application does with this library in one process: sets up the default logs, a rolling file and a plain file
/// of its own, starts and ends a listener, updates the levels, and logs at each step through old and new loggers. Goes
/// on whatever fails.
/// @return how many steps failed, by their result or an exception.
int liveOnce();

/// Whether a set-up and a line in the common log still work, as they must when nothing fails any more.
/// @param _commonLog its path.
bool isWell(const std::string& _commonLog);

}  // namespace fault
