// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace testsupport {

/// The definition of "*", word for word: whether the pattern from i on matches the name from j on, for all i and j.
inline bool naiveMatch(const std::string& _pattern, const std::string& _name) {
  const std::size_t patternSize = _pattern.size();
  const std::size_t nameSize = _name.size();
  std::vector<std::vector<bool>> matches(patternSize + 1, std::vector<bool>(nameSize + 1, false));
  matches[patternSize][nameSize] = true;
  for (std::size_t i = patternSize; i-- > 0;) {
    for (std::size_t j = nameSize + 1; j-- > 0;) {
      if (_pattern[i] == '*') {
        for (std::size_t end = j; end <= nameSize; ++end)
          matches[i][j] = matches[i][j] || matches[i + 1][end];
      } else {
        matches[i][j] = j < nameSize && _pattern[i] == _name[j] && matches[i + 1][j + 1];
      }
    }
  }
  return matches[0][0];
}

/// Which logs a pattern selects, word for word by the definition.
inline bool naiveSelects(const std::string& _pattern, const std::string& _name) {
  if (_pattern.find('*') != std::string::npos) return naiveMatch(_pattern, _name);
  return _name == _pattern || (!_pattern.empty() && _name.substr(0, _pattern.size() + 1) == _pattern + ".");
}

/// All texts of the characters up to the size.
inline std::vector<std::string> allTexts(const std::string& _characters, std::size_t _size) {
  std::vector<std::string> texts{""};
  for (std::size_t begin = 0, size = 1; size <= _size; ++size) {
    const std::size_t end = texts.size();
    for (std::size_t i = begin; i < end; ++i) {
      for (const char character : _characters)
        texts.push_back(texts[i] + character);
    }
    begin = end;
  }
  return texts;
}

}  // namespace testsupport
