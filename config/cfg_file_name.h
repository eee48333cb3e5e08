// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

/// The name of a CA's file: the name pattern with its first "X" and the two characters after that replaced by the CA.
/// Throws std::out_of_range for a pattern without "X".
std::string cfgFileName(const std::string& _pattern, const std::string& _ca);

}  // namespace Quillmark_logging
