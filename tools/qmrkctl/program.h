// SPDX-License-Identifier: MIT
#pragma once

namespace qmrkctl {

/// The whole program. It is compiled together with the commands.
/// @param _argv as main() gets it.
/// @return the exit code of the process.
int runProgram(int _argc, char** _argv);

}  // namespace qmrkctl
