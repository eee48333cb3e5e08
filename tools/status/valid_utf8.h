// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace qmrkctl {

/// The text with U+FFFD for each byte that is not part of valid UTF-8. Overlong forms, surrogates and code points above
/// U+10FFFF are invalid.
std::string validUtf8(std::string_view _text);

}  // namespace qmrkctl
