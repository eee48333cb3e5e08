// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace testsupport {

struct ChildResult {
  /// -1 when the program could not be started or was ended by a signal.
  int exitCode = -1;
  /// What it wrote to standard output and standard error, with LF line ends.
  std::string output;
  std::string errors;
};

/// Runs a program to its end, with the environment of this process.
ChildResult runProgram(const std::string& _program, const std::vector<std::string>& _arguments);

}  // namespace testsupport
