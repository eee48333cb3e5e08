// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace toolsystem {

struct ProgramResult {
  int exitCode = -1;   ///< -1: it could not be started, or did not end by itself
  std::string output;  ///< of its standard output, and of its standard error stream
};

/// Runs this program once more, to its end.
/// @param _most bytes of output; what is beyond is dropped.
ProgramResult runOwnProgram(const std::vector<std::string>& _arguments, std::size_t _most);

}  // namespace toolsystem
