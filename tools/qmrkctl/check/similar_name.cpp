// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/check/similar_name.h"

#include <algorithm>
#include <vector>

namespace qmrkctl {
namespace {

// More cannot be a slip, and the time grows with the product of the lengths.
constexpr std::size_t longestName = 64;

char lower(char _c) { return _c >= 'A' && _c <= 'Z' ? static_cast<char>(_c - 'A' + 'a') : _c; }

}  // namespace

int editDistance(std::string_view _one, std::string_view _other) {
  std::vector<std::vector<int>> distance(_one.size() + 1, std::vector<int>(_other.size() + 1));
  for (std::size_t i = 0; i <= _one.size(); ++i) {
    for (std::size_t j = 0; j <= _other.size(); ++j) {
      if (i == 0 || j == 0) {
        distance[i][j] = static_cast<int>(i + j);
        continue;
      }
      const int replaced = distance[i - 1][j - 1] + (_one[i - 1] == _other[j - 1] ? 0 : 1);
      distance[i][j] = std::min({distance[i - 1][j] + 1, distance[i][j - 1] + 1, replaced});
      if (i > 1 && j > 1 && _one[i - 1] == _other[j - 2] && _one[i - 2] == _other[j - 1]) {
        distance[i][j] = std::min(distance[i][j], distance[i - 2][j - 2] + 1);
      }
    }
  }
  return distance[_one.size()][_other.size()];
}

bool isSameIgnoringCase(std::string_view _one, std::string_view _other) {
  return std::equal(_one.begin(), _one.end(), _other.begin(), _other.end(),
                    [](char _a, char _b) { return lower(_a) == lower(_b); });
}

std::string similarName(std::string_view _name, std::span<const std::string_view> _known) {
  if (_name.size() > longestName) return "";
  std::string_view nearest;
  int least = 0;
  for (const std::string_view known : _known) {
    const bool isSame = isSameIgnoringCase(_name, known);
    const int distance = isSame ? 0 : editDistance(_name, known);
    const bool isNear = distance * 4 <= static_cast<int>(std::max(_name.size(), known.size()));
    if (isNear && (nearest.empty() || distance < least)) {
      nearest = known;
      least = distance;
    }
  }
  return std::string(nearest);
}

}  // namespace qmrkctl
