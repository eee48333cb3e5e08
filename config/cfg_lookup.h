// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

/// Reads one value from the .cfg file of a CA.
/// @param _value untouched when the result is false: preset a default.
/// @return whether the key was found.
bool getCfgValue(const std::string& _key, std::string& _value, const std::string& _ca);

}  // namespace Quillmark_logging
