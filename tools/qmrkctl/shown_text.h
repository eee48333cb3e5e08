// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace qmrkctl {

/// Makes a text from outside safe to print as part of a line. Keeps valid UTF-8, but escapes control characters (those
/// of C1 too), line ends, invisible and direction marks, and bytes that are not UTF-8, as "\n", "\r", "\t" or "\xNN".
/// Keeps backslashes, since paths have many.
std::string shown(std::string_view _text);

/// The length in bytes of the valid UTF-8 character at the beginning of a text; 0 if there is none.
std::size_t utf8Length(std::string_view _text);

}  // namespace qmrkctl
