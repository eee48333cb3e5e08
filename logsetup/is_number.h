// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

/// Traces the characters of a numeric setting.
/// @return true for every text, even the empty one and texts without digits: settings reach the conversion unchecked,
///   as they always have.
bool isNumber(const std::string& _s);

}  // namespace Quillmark_logging
