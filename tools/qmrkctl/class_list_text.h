// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qmrkctl {

// Changes to the text of a class list (docs/file-formats.md). Everything else in it is kept byte for byte: order, line
// ends, blanks.

/// The text that switches everything off.
constexpr std::string_view emptyClassList = "\n";

/// The names in the list, in order and with repetitions. Line ends belong to no name, empty entries are left out, and
/// the last entry need not end with ";".
std::vector<std::string> classesIn(std::string_view _text);

/// The list with the missing names appended, on lines of their own if the list has lines.
std::string withClasses(std::string_view _text, const std::vector<std::string>& _names);

/// The list without the names: without every occurrence or, with _onlyOnce, without the first of each. Never an empty
/// text if something was removed, but emptyClassList.
std::string withoutClasses(std::string_view _text, const std::vector<std::string>& _names, bool _onlyOnce = false);

/// A list of these names, one per line.
std::string classListOf(const std::vector<std::string>& _names);

/// Whether a list can hold the name: not empty, no ";", line end or NUL, no blank at either end.
bool isClassName(std::string_view _name);

/// The names in the first list but not in the second, each once.
std::vector<std::string> classesMissingIn(const std::vector<std::string>& _names,
                                          const std::vector<std::string>& _others);

}  // namespace qmrkctl
