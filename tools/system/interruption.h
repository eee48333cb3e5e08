// SPDX-License-Identifier: MIT
#pragma once

namespace toolsystem {

/// Makes Ctrl-C end the next pause instead of the program, from now on.
void catchInterruption();

enum class Pause {
  over,         ///< the time is up
  interrupted,  ///< by Ctrl-C, at any time since catchInterruption
  readerGone,   ///< nobody reads standard output any more (detected on Linux only)
};

/// Waits that many milliseconds, or until there is a reason to stop. For one thread.
Pause pauseFor(int _milliseconds);

}  // namespace toolsystem
