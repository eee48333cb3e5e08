// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace boost::logging::detail {

// A glob is a text in which "*" stands for any run of characters, including none; every other byte stands for itself.
// Pure functions, safe from any thread.

/// Whether the glob matches the whole text. Every "*" of the text is a character like any other, which only a "*" of
/// the glob can match; so, with a glob as the text, the answer is whether the first matches all that the second does.
bool globMatches(std::string_view _glob, std::string_view _text);

/// What the glob has before its first "*" and after its last one; without "*" each is the whole glob.
inline std::string_view globBeginning(std::string_view _glob) { return _glob.substr(0, _glob.find('*')); }
inline std::string_view globEnding(std::string_view _glob) { return _glob.substr(_glob.rfind('*') + 1); }

/// Whether there is a text that both globs match.
bool globsMeet(std::string_view _one, std::string_view _other);

}  // namespace boost::logging::detail
