// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace qmrkctl {

/// The rows as lines without line ends: columns as wide as their widest text (in UTF-8 characters), two blanks between
/// them, no trailing blanks.
std::vector<std::string> tableLines(const std::vector<std::vector<std::string>>& _rows);

}  // namespace qmrkctl
