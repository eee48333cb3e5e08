// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace qmrkctl {

/// Rows as lines, without line ends: each column as wide as its widest text, two blanks between them, none at the end.
std::vector<std::string> tableLines(const std::vector<std::vector<std::string>>& _rows);

}  // namespace qmrkctl
