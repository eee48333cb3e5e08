// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace boost::logging::detail {

/// Selects logs by name. With "*", which stands for any run of characters, the pattern must match the whole name;
/// without, it selects the log of that name and those below it ("App" selects "App" and "App.error", not "Apple"), or,
/// when it is empty, only the log with the empty name. A value.
class NamePattern {
 public:
  explicit NamePattern(const std::string& _text);

  /// The pattern, each run of "*" as one.
  const std::string& text() const { return text_; }

  /// Whether there is no "*" in it.
  bool isPlain() const { return firstStar_ == std::string::npos; }
  bool selectsAll() const { return text_ == "*"; }

  /// What every selected name begins and ends with, for a pattern with "*".
  std::string_view prefix() const { return std::string_view(text_).substr(0, firstStar_); }
  std::string_view suffix() const { return std::string_view(text_).substr(text_.rfind('*') + 1); }

  bool selects(std::string_view _name) const;

  /// Whether every name that the other selects is selected.
  bool covers(const NamePattern& _other) const;

  /// Whether there is a name that both select.
  bool meets(const NamePattern& _other) const;

 private:
  std::string text_;
  std::string::size_type firstStar_;
};

}  // namespace boost::logging::detail
