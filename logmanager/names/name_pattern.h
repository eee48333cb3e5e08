// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "logmanager/names/name_hash.h"

namespace boost::logging::detail {

/// Selects logs by name. With "*", which stands for any sequence of characters, the pattern must match the whole name;
/// without, it selects the log of that name and those below it ("App" selects "App" and "App.error", not "Apple"), or,
/// when it is empty, only the log with the empty name. A view of its text, for one thread.
class NamePattern {
 public:
  explicit NamePattern(std::string_view _text) : NamePattern(_text, _text.find('*') == std::string_view::npos) {}

  /// For a text of which it is known.
  NamePattern(std::string_view _text, bool _isPlain) : text_(_text), isPlain_(_isPlain) {}

  std::string_view text() const { return text_; }

  /// Whether it contains no "*".
  bool isPlain() const { return isPlain_; }
  bool selectsAll() const { return text_ == "*"; }

  /// Hash of the text, computed once for all look-ups that need it.
  std::size_t hash() const {
    if (hash_ == notHashed) hash_ = hashOfName(text_);
    return hash_;
  }

  bool selects(std::string_view _name) const;

  /// The globs (names/glob.h) that together match what the pattern selects: itself, and for a plain one the names below
  /// it as well. No name matches two of them.
  std::vector<std::string> globs() const;

 private:
  std::string_view text_;
  bool isPlain_;
  static constexpr std::size_t notHashed = 0;
  mutable std::size_t hash_ = notHashed;
};

/// Calls _visit(std::string_view) for each plain pattern that selects the name, but for those that are longer than this
/// and not the whole name.
template <typename Visit>
void forEachPlainPatternOf(std::string_view _name, std::size_t _longest, Visit _visit) {
  _visit(_name);
  for (std::size_t dot = _name.find('.', 1); dot <= _longest && dot != std::string_view::npos;
       dot = _name.find('.', dot + 1)) {
    _visit(_name.substr(0, dot));
  }
}

// Let tables of names look up a part of a name without a copy, and a plain pattern by its hash.

struct NameHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view _name) const { return hashOfName(_name); }
  std::size_t operator()(const NamePattern& _pattern) const { return _pattern.hash(); }
};

struct NameEqual {
  using is_transparent = void;
  bool operator()(std::string_view _left, std::string_view _right) const { return _left == _right; }
  bool operator()(const NamePattern& _left, std::string_view _right) const { return _left.text() == _right; }
};

}  // namespace boost::logging::detail
