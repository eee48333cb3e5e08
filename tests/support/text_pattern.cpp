// SPDX-License-Identifier: MIT
#include "tests/support/text_pattern.h"

#include <regex>

namespace testsupport {

struct TextPattern::Compiled {
  std::regex expression;
};

TextPattern::TextPattern(const std::string& _pattern) : compiled_(new Compiled{std::regex(_pattern)}) {}

TextPattern::~TextPattern() = default;

bool TextPattern::matches(const std::string& _text) const {
  std::vector<std::string> groups;
  return matches(_text, groups);
}

bool TextPattern::matches(const std::string& _text, std::vector<std::string>& _groups) const {
  std::smatch match;
  if (!std::regex_match(_text, match, compiled_->expression)) return false;
  _groups.assign(std::next(match.begin()), match.end());
  return true;
}

std::string TextPattern::replacedIn(const std::string& _text, const std::string& _replacement) const {
  return std::regex_replace(_text, compiled_->expression, _replacement);
}

}  // namespace testsupport
