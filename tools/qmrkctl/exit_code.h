// SPDX-License-Identifier: MIT
#pragma once

namespace qmrkctl {

// The exit codes of every command.

constexpr int exitOk = 0;
constexpr int exitNegative = 1;      ///< there are findings, or the answer is "no"
constexpr int exitUsage = 2;         ///< the command line is wrong; nothing was done
constexpr int exitNotFound = 3;      ///< something that the command line names does not exist
constexpr int exitNoPermission = 4;  ///< a message names the command that would have it
constexpr int exitPartial = 5;       ///< only some of it was done, or only some answered
constexpr int exitTimeout = 6;       ///< nobody answered in time
constexpr int exitInternal = 70;     ///< a bug in the tool, or its results cannot be written
constexpr int exitInterrupted = 130;

}  // namespace qmrkctl
