// SPDX-License-Identifier: MIT
#pragma once

namespace qmrkctl {

/// What every command of the program ends with.
constexpr int exitDone = 0;
constexpr int exitNoListener = 1;  ///< there was nobody, or nothing, to do it to
constexpr int exitUsage = 2;       ///< the command line is wrong; nothing was done
constexpr int exitFailed = 3;      ///< the system refused

}  // namespace qmrkctl
