// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace boost::logging::detail {

// A glob is a text in which "*" stands for any sequence of characters, including none; every other byte stands for
// itself. Pure functions, safe from any thread.

/// Whether the glob matches the whole text. A "*" in the text is a character like any other, which only a "*" of the
/// glob can match; so, if the text is a glob, the result says whether the first matches all that the second does.
bool globMatches(std::string_view _glob, std::string_view _text);

/// The parts of the glob before its first "*" and after its last one; without a "*", each is the whole glob.
inline std::string_view globBeginning(std::string_view _glob) { return _glob.substr(0, _glob.find('*')); }
inline std::string_view globEnding(std::string_view _glob) { return _glob.substr(_glob.rfind('*') + 1); }

/// Whether both globs match a common text.
bool globsMeet(std::string_view _one, std::string_view _other);

// The two sides from which names and the literal ends of globs are ordered and compared.

/// From the first byte to the last: names with a common beginning are neighbours.
struct FromBeginning {
  static bool isLess(std::string_view _left, std::string_view _right) { return _left < _right; }
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
  static bool has(std::string_view _name, std::string_view _literal) { return _name.ends_with(_literal); }
  static std::string_view part(std::string_view _name, std::size_t _size) { return _name.substr(_name.size() - _size); }
  static std::size_t common(std::string_view _left, std::string_view _right) {
    return static_cast<std::size_t>(std::mismatch(_left.rbegin(), _left.rend(), _right.rbegin(), _right.rend()).first -
                                    _left.rbegin());
  }
};

template <typename Side>
struct NameLess {
  using is_transparent = void;
  using NameSide = Side;
  bool operator()(std::string_view _left, std::string_view _right) const { return Side::isLess(_left, _right); }
};

// Searches in a std::map ordered by NameLess. Each calls the test, bool(mapped value&), until it holds, and returns
// whether it did. In a map ordered from the ending, "begin" means "end".

/// Among the keys that the literal begins with.
template <typename Map, typename Test>
bool anyPartOf(Map& _map, std::string_view _literal, Test _test) {
  using Side = typename Map::key_compare::NameSide;
  // From the longest possible key to shorter ones. The greatest key that is not greater than a part of the literal is
  // a part of it, or shows how long the next one can be.
  std::size_t size = _literal.size();
  while (true) {
    auto place = _map.upper_bound(Side::part(_literal, size));
    if (place == _map.begin()) return false;
    --place;
    const std::string_view key = place->first;
    if (!Side::has(_literal, key)) {
      size = Side::common(key, _literal);
      continue;
    }
    if (_test(place->second)) return true;
    if (key.empty()) return false;
    size = key.size() - 1;
  }
}

/// Among the keys that begin with the literal.
template <typename Map, typename Test>
bool anyExtensionOf(Map& _map, std::string_view _literal, Test _test) {
  using Side = typename Map::key_compare::NameSide;
  for (auto place = _map.lower_bound(_literal); place != _map.end() && Side::has(place->first, _literal); ++place) {
    if (_test(place->second)) return true;
  }
  return false;
}

/// Among both.
template <typename Map, typename Test>
bool anyRelatedTo(Map& _map, std::string_view _literal, Test _test) {
  return anyPartOf(_map, _literal, _test) || anyExtensionOf(_map, _literal, _test);
}

}  // namespace boost::logging::detail
