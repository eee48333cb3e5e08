// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/table_text.h"

#include <algorithm>

namespace qmrkctl {
namespace {

// Characters on the terminal, as far as UTF-8 tells.
std::size_t widthOf(const std::string& _text) {
  return static_cast<std::size_t>(std::count_if(
      _text.begin(), _text.end(), [](char _byte) { return (static_cast<unsigned char>(_byte) & 0xC0U) != 0x80U; }));
}

}  // namespace

std::vector<std::string> tableLines(const std::vector<std::vector<std::string>>& _rows) {
  std::vector<std::size_t> widths;
  for (const auto& row : _rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i)
      widths[i] = std::max(widths[i], widthOf(row[i]));
  }
  std::vector<std::string> lines;
  for (const auto& row : _rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += row[i];
      if (i + 1 < row.size()) line += std::string(widths[i] - widthOf(row[i]) + 2, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    lines.push_back(line);
  }
  return lines;
}

}  // namespace qmrkctl
