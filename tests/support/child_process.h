// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace testsupport {

struct ChildResult {
  /// -1 if the program could not be started or a signal ended it.
  int exitCode = -1;
  /// What it wrote to standard output and standard error, with LF line ends.
  std::string output;
  std::string errors;
};

/// Runs a program with the environment of this process and waits for its end.
ChildResult runProgram(const std::string& _program, const std::vector<std::string>& _arguments);

}  // namespace testsupport
