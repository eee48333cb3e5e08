// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace fault {

/// What an application does with this library, in one process: it sets the default logs up, makes a file of its own
/// that rolls and one that does not, starts a listener and ends it, updates the levels, and logs at each step through
/// old and new loggers. Whatever fails, it goes on.
/// @return how many steps have failed, as their result or an exception says.
int liveOnce();

/// Whether a set-up and a line still work, as they have to when nothing fails any more. The line is in the common log.
/// @param _commonLog its path.
bool isWell(const std::string& _commonLog);

}  // namespace fault
