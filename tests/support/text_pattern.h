// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace testsupport {

/// A regular expression of ECMAScript. (GoogleTest's own expressions differ between the systems.) Only one source
/// instantiates std::regex, because that takes the compiler seconds. Several threads may use an object.
class TextPattern {
 public:
  explicit TextPattern(const std::string& _pattern);
  ~TextPattern();
  TextPattern(const TextPattern&) = delete;
  TextPattern& operator=(const TextPattern&) = delete;

  /// Whether a text as a whole has the pattern.
  bool matches(const std::string& _text) const;

  /// The same, and what its groups match, from the first on.
  bool matches(const std::string& _text, std::vector<std::string>& _groups) const;

  /// The text with every match of the pattern replaced.
  std::string replacedIn(const std::string& _text, const std::string& _replacement) const;

 private:
  struct Compiled;
  std::unique_ptr<const Compiled> compiled_;
};

}  // namespace testsupport
