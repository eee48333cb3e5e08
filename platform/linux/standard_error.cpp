// SPDX-License-Identifier: MIT
#include "platform/standard_error.h"

#include "platform/console.h"

namespace platform {

// The console of the process is its standard error stream.
void writeStandardError(const std::string& _text) { writeConsole(_text); }

}  // namespace platform
