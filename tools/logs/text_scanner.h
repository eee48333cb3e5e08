// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace qmrkctl {

/// Scans a text from its beginning. A failing step changes nothing. Does not own the text.
class TextScanner {
 public:
  explicit TextScanner(std::string_view _text) : rest_(_text) {}

  std::string_view rest() const { return rest_; }
  bool isAtEnd() const { return rest_.empty(); }

  bool take(std::string_view _literal) {
    if (!rest_.starts_with(_literal)) return false;
    rest_.remove_prefix(_literal.size());
    return true;
  }

  /// Takes exactly that many decimal digits, at most nine.
  bool takeNumber(std::size_t _digits, int& _number) {
    const std::string_view digits = rest_.substr(0, _digits);
    if (digits.size() != _digits || !std::ranges::all_of(digits, [](char _c) { return _c >= '0' && _c <= '9'; })) {
      return false;
    }
    _number = 0;
    for (const char c : digits)
      _number = _number * 10 + (c - '0');
    rest_.remove_prefix(_digits);
    return true;
  }

 private:
  std::string_view rest_;
};

}  // namespace qmrkctl
