// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

/// Traces the characters of a numeric setting.
/// @return true for every text, also for the empty one and for texts without digits: what is set reaches the conversion
///   unchecked, as it always has.
bool isNumber(const std::string& _s);

}  // namespace Quillmark_logging
