// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace toolsystem {

struct ProgramResult {
  int exitCode = -1;   ///< -1: it could not be started, or a signal ended it
  std::string output;  ///< of its standard output and standard error
};

/// Runs another instance of this program and waits for its end.
/// @param _most how many bytes of output to keep.
ProgramResult runOwnProgram(const std::vector<std::string>& _arguments, std::size_t _most);

}  // namespace toolsystem
