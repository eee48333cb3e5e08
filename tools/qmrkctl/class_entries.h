// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qmrkctl {

/// An entry of a class list, as the library reads it, with its place.
struct ClassEntry {
  std::string pattern;
  std::size_t begin = 0;     ///< byte position of its first character; of its ";" if it is empty
  bool isOverLines = false;  ///< it joins pieces of several lines
};

/// The entries of the text of an .init file. Line ends separate nothing; a missing last ";" is added.
std::vector<ClassEntry> enabledClasses(std::string_view _text);

/// The entries of a filter. What follows the last ";" is dropped.
std::vector<ClassEntry> filterClasses(std::string_view _value);

/// Whether both patterns select some log in common.
bool selectACommonLog(std::string_view _one, std::string_view _other);

/// Whether a pattern selects a log.
bool selects(std::string_view _pattern, std::string_view _log);

}  // namespace qmrkctl
