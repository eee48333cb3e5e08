// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace boost::logging::detail {

/// Selects logs by name. With "*", which stands for any run of characters, the pattern must match the whole name;
/// without, it selects the log of that name and those below it ("App" selects "App" and "App.error", not "Apple"), or,
/// when it is empty, only the log with the empty name. A view of its text.
class NamePattern {
 public:
  explicit NamePattern(std::string_view _text)
      : text_(_text),
        isPlain_(_text.find('*') == std::string_view::npos),
        hash_(isPlain_ ? std::hash<std::string_view>()(_text) : 0) {}

  std::string_view text() const { return text_; }

  /// Whether there is no "*" in it.
  bool isPlain() const { return isPlain_; }
  bool selectsAll() const { return text_ == "*"; }

  /// Of the text of a plain pattern: computed once for all tables that are asked for it.
  std::size_t hash() const { return hash_; }

  bool selects(std::string_view _name) const;

  /// The globs (names/glob.h) that together match what the pattern selects: itself, and for a plain one the names below
  /// it as well. No name matches two of them.
  std::vector<std::string> globs() const;

 private:
  std::string_view text_;
  bool isPlain_;
  std::size_t hash_;
};

}  // namespace boost::logging::detail
