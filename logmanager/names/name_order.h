// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "logmanager/names/name_pattern.h"

namespace boost::logging::detail {

// The two sides from which names are ordered and a pattern's literal is read, alike in form.

/// From the first byte to the last: names with a common beginning are neighbours.
struct FromBeginning {
  static bool isLess(std::string_view _left, std::string_view _right) { return _left < _right; }
  static std::string_view literal(const NamePattern& _pattern) { return _pattern.prefix(); }
  static bool has(std::string_view _name, std::string_view _literal) { return _name.starts_with(_literal); }
  static std::string_view part(std::string_view _name, std::size_t _size) { return _name.substr(0, _size); }
  /// How many bytes the two have in common.
  static std::size_t common(std::string_view _left, std::string_view _right) {
    return static_cast<std::size_t>(std::mismatch(_left.begin(), _left.end(), _right.begin(), _right.end()).first -
                                    _left.begin());
  }
};

/// From the last byte to the first: names with a common ending are neighbours.
struct FromEnding {
  static bool isLess(std::string_view _left, std::string_view _right) {
    return std::lexicographical_compare(_left.rbegin(), _left.rend(), _right.rbegin(), _right.rend());
  }
  static std::string_view literal(const NamePattern& _pattern) { return _pattern.suffix(); }
  static bool has(std::string_view _name, std::string_view _literal) { return _name.ends_with(_literal); }
  static std::string_view part(std::string_view _name, std::size_t _size) { return _name.substr(_name.size() - _size); }
  static std::size_t common(std::string_view _left, std::string_view _right) {
    return static_cast<std::size_t>(std::mismatch(_left.rbegin(), _left.rend(), _right.rbegin(), _right.rend()).first -
                                    _left.rbegin());
  }
};

/// Whether a pattern with "*" is better looked up by its beginning than by its ending: the longer literal selects less.
inline bool isByBeginning(const NamePattern& _pattern) { return _pattern.prefix().size() >= _pattern.suffix().size(); }

template <typename Side>
struct NameLess {
  using is_transparent = void;
  bool operator()(std::string_view _left, std::string_view _right) const { return Side::isLess(_left, _right); }
};

}  // namespace boost::logging::detail
