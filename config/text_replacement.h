// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

/// The text with every occurrence of _from replaced by _to. Does not search what it put in.
/// @param _from must not be empty.
std::string replaceAll(const std::string& _text, const std::string& _from, const std::string& _to);

}  // namespace Quillmark_logging
