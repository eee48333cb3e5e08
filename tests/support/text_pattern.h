// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace testsupport {

/// An ECMAScript regular expression. (GoogleTest's own differ between the systems.) Only one source instantiates
/// std::regex, because that takes the compiler seconds. Several threads may use an object.
class TextPattern {
 public:
  explicit TextPattern(const std::string& _pattern);
  ~TextPattern();
  TextPattern(const TextPattern&) = delete;
  TextPattern& operator=(const TextPattern&) = delete;

  /// Whether all of a text matches the pattern.
  bool matches(const std::string& _text) const;

  /// The same; _groups receives what the groups match, from the first on, and is untouched if the text does not match.
  bool matches(const std::string& _text, std::vector<std::string>& _groups) const;

  /// The text with every match of the pattern replaced.
  std::string replacedIn(const std::string& _text, const std::string& _replacement) const;

 private:
  struct Compiled;
  std::unique_ptr<const Compiled> compiled_;
};

}  // namespace testsupport
