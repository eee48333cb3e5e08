// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qmrkctl {

// The text of a class list (docs/file-formats.md), and how it is changed. What stands there is kept byte for byte where
// it is not meant: order, line ends, blanks.

/// The text that switches everything off.
constexpr std::string_view emptyClassList = "\n";

/// The names in the list, in their order, each as often as it stands there: line ends belong to none, and the last one
/// need not end in ";".
std::vector<std::string> classesIn(std::string_view _text);

/// The list with the names that it lacks at its end, on lines of their own where the list has lines.
std::string withClasses(std::string_view _text, const std::vector<std::string>& _names);

/// The list without the names, all of them, or with _onlyOnce the first of each.
std::string withoutClasses(std::string_view _text, const std::vector<std::string>& _names, bool _onlyOnce = false);

/// A list of these names, a line for each.
std::string classListOf(const std::vector<std::string>& _names);

/// Whether a name can stand in a list: not empty, no ";", no line end, no blank at either end.
bool isClassName(std::string_view _name);

/// What is in the first list and not in the second, each name once.
std::vector<std::string> classesMissingIn(const std::vector<std::string>& _names,
                                          const std::vector<std::string>& _others);

}  // namespace qmrkctl
