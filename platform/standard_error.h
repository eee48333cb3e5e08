// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace platform {

/// Writes the text to standard error in one call (on Linux one write, on Windows WriteFile on the standard error
/// handle). The bytes are written as they are. Failures are ignored; a pipe that nobody reads does not end the process.
void writeStandardError(const std::string& _text);

}  // namespace platform
