// SPDX-License-Identifier: MIT
#pragma once

namespace toolsystem {

/// Ctrl-C no longer ends the program but the next pause.
void catchInterruption();

enum class Pause {
  over,         ///< the time is over
  interrupted,  ///< by Ctrl-C, at any time since it is caught
  readerGone,   ///< nobody reads the standard output any more (found out on Linux only)
};

/// Waits that many milliseconds, or until there is a reason to stop.
Pause pauseFor(int _milliseconds);

}  // namespace toolsystem
