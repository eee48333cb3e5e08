// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace testsupport {

/// The text without its comments. Takes one line after another, and searches each from the left for a comment.
inline std::string withoutComments(const std::string& _text) {
  std::string result;
  bool isFirstLine = true;
  for (std::size_t begin = 0; begin <= _text.size();) {
    const std::size_t end = std::min(_text.find('\n', begin), _text.size());
    const std::string line = _text.substr(begin, end - begin);
    std::size_t cut = line.find('#');
    for (std::size_t slashes = line.find("//"); slashes < cut; slashes = line.find("//", slashes + 1)) {
      const bool counts = slashes == 0 ? !isFirstLine : line[slashes - 1] == ' ';
      if (counts) cut = slashes;
    }
    result += line.substr(0, cut);
    if (end < _text.size()) result += '\n';
    begin = end + 1;
    isFirstLine = false;
  }
  return result;
}

/// A naive reading of a configuration text, as an oracle for the scanner: "key|value" for each pair. Cuts comments
/// first, then takes whole keys and whole values off the front of the rest.
inline std::vector<std::string> naivePairsOf(const std::string& _text) {
  std::string expanded;
  for (const char c : _text)
    expanded += c == '\t' ? std::string(8, ' ') : std::string(1, c);
  std::string rest = withoutComments(expanded);
  std::vector<std::string> pairs;
  for (;;) {
    const std::size_t separator = rest.find_first_of("=:");
    if (separator == std::string::npos) return pairs;
    std::string key = rest.substr(0, separator);
    key.erase(std::remove(key.begin(), key.end(), '\n'), key.end());
    rest.erase(0, separator + 1);
    // The first character of a value belongs to it, whatever it is.
    const std::size_t end = rest.find('\n', 1);
    if (key.empty() || end == std::string::npos) return pairs;
    pairs.push_back(key + "|" + rest.substr(0, end));
    rest.erase(0, end + 1);
  }
}

}  // namespace testsupport
