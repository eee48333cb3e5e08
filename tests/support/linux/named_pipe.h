// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// Puts a pipe in place of a file, if there is one: a plain open for reading waits until somebody opens the pipe for
/// writing. The path may have either separator.
void makeNamedPipe(const std::string& _path);

}  // namespace testsupport
