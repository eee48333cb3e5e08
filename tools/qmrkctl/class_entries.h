// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qmrkctl {

/// An entry of a class list, as the library takes it, with its place.
struct ClassEntry {
  std::string pattern;
  std::size_t begin = 0;     ///< position of its first character in the text; of its ";" when it is empty
  bool isOverLines = false;  ///< pieces of several lines are joined in it
};

/// The entries of the text of an .init file: line ends separate nothing, and a missing last ";" is added.
std::vector<ClassEntry> enabledClasses(std::string_view _text);

/// The entries of a filter: what follows the last ";" is dropped.
std::vector<ClassEntry> filterClasses(std::string_view _value);

/// Whether there is a log that both patterns select.
bool selectACommonLog(std::string_view _one, std::string_view _other);

/// Whether a pattern selects a log.
bool selects(std::string_view _pattern, std::string_view _log);

}  // namespace qmrkctl
