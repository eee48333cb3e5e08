// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace testsupport {

/// A regular expression of ECMAScript. (GoogleTest's own expressions differ between the systems.) Everything that
/// instantiates std::regex is in one source, since it takes the compiler seconds. May be used by several threads.
class TextPattern {
 public:
  explicit TextPattern(const std::string& _pattern);
  ~TextPattern();
  TextPattern(const TextPattern&) = delete;
  TextPattern& operator=(const TextPattern&) = delete;

  /// Whether a text as a whole has the pattern.
  bool matches(const std::string& _text) const;

  /// The same, and what its groups stand for, from the first on.
  bool matches(const std::string& _text, std::vector<std::string>& _groups) const;

  /// The text with whatever has the pattern replaced.
  std::string replacedIn(const std::string& _text, const std::string& _replacement) const;

 private:
  struct Compiled;
  std::unique_ptr<const Compiled> compiled_;
};

}  // namespace testsupport
