// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "diagnostics/os_description.h"

namespace Quillmark_logging {

/// Describes the running system (describeSystem with the facts of the platform). Always false on Linux.
bool getOSDescription(std::string& _text);

/// Appends the description of the running system and an empty line to the common log file of a CA. Creates the file if
/// it is missing; its folder must exist. Others may have the file open.
/// @return whether it wrote them. Writes nothing when it cannot describe the system.
bool writeOSInfo(const std::string& _ca);

/// The same with the facts of another system.
bool writeOSInfo(const std::string& _ca, SystemFacts& _facts);

}  // namespace Quillmark_logging
