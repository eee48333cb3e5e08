// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/check/similar_name.h"

#include <algorithm>
#include <vector>

namespace qmrkctl {
namespace {

// More cannot be a slip, and the time grows with the product of the lengths.
constexpr std::size_t longestName = 64;

char lower(char _c) { return _c >= 'A' && _c <= 'Z' ? static_cast<char>(_c - 'A' + 'a') : _c; }

// What is left of two names without what they begin and end with in common.
struct Difference {
  std::string_view one;
  std::string_view other;
  char before = '\0';  ///< the last character in front of it that they have in common
  bool isInside = false;
};

Difference differenceOf(std::string_view _one, std::string_view _other) {
  const auto same = static_cast<std::size_t>(
      std::mismatch(_one.begin(), _one.end(), _other.begin(), _other.end()).first - _one.begin());
  Difference difference = {_one.substr(same), _other.substr(same), same == 0 ? '\0' : _one[same - 1], false};
  while (!difference.one.empty() && !difference.other.empty() && difference.one.back() == difference.other.back()) {
    difference.one.remove_suffix(1);
    difference.other.remove_suffix(1);
    difference.isInside = true;
  }
  return difference;
}

// Words that differ by such a letter at their end are different words.
bool isNoEnding(char _c) { return std::string_view("drsy").find(_c) == std::string_view::npos; }

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

bool isSlip(std::string_view _written, std::string_view _meant) {
  constexpr std::size_t fewLetters = 4;
  if (_written == _meant || _meant.size() < 3) return false;
  if (isSameIgnoringCase(_written, _meant)) return true;
  const auto [written, meant, before, isInside] = differenceOf(_written, _meant);
  constexpr std::string_view digits = "0123456789";
  const auto hasDigit = [&](std::string_view _part) { return _part.find_first_of(digits) != std::string_view::npos; };
  if (before == '\0' || hasDigit(written) || hasDigit(meant)) return false;
  if (written.size() == 2 && meant.size() == 2) return written[0] == meant[1] && written[1] == meant[0];
  if (written.empty() && meant.size() == 1)
    return meant[0] == before || (_meant.size() >= fewLetters && (isInside || isNoEnding(meant[0])));
  if (meant.empty() && written.size() == 1) return written[0] == before || (_meant.size() >= fewLetters && isInside);
  return written.size() == 1 && meant.size() == 1 && _meant.size() > fewLetters + 1;
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
