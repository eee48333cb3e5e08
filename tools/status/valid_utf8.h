// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace qmrkctl {

/// The text with each byte that belongs to no valid UTF-8 sequence replaced by U+FFFD. Overlong forms, surrogates and
/// what lies beyond U+10FFFF are not valid.
std::string validUtf8(std::string_view _text);

}  // namespace qmrkctl
