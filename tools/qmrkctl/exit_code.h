// SPDX-License-Identifier: MIT
#pragma once

namespace qmrkctl {

/// The exit codes of every command.
constexpr int exitDone = 0;
constexpr int exitNoListener = 1;  ///< there was nobody, or nothing, to act on
constexpr int exitUsage = 2;       ///< the command line is wrong; nothing was done
constexpr int exitFailed = 3;      ///< the system refused

}  // namespace qmrkctl
