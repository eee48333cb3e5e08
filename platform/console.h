// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace platform {

/// Writes the text to the console of the process in one call: standard error on Linux (one write, repeated
/// only for what a short write left), _cprintf on Windows. The bytes are written as they are. Failures are ignored.
void writeConsole(const std::string& _text);

}  // namespace platform
