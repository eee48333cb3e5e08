// SPDX-License-Identifier: MIT
#pragma once

namespace qmrkctl {

/// The whole program.
/// @param _argv as main() gets it.
/// @return the exit code of the process.
int runProgram(int _argc, char** _argv);

}  // namespace qmrkctl
