// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace qmrkctl {

/// A text from outside, fit for a line on a terminal: valid UTF-8 stays; control characters (those of C1 too), line
/// ends, marks that turn the direction of writing, and bytes that are no UTF-8 become "\n", "\r", "\t" or "\xNN". A
/// backslash stays as it is, since paths have many.
std::string shown(std::string_view _text);

/// The number of bytes of the valid UTF-8 character with which a text begins; 0 if there is none.
std::size_t utf8Length(std::string_view _text);

}  // namespace qmrkctl
