// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// Creates a named pipe, in place of a file if there is one. A plain open for reading then waits until somebody opens
/// the pipe for writing. The path may have either separator.
void makeNamedPipe(const std::string& _path);

}  // namespace testsupport
