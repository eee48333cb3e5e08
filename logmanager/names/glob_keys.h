// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <limits>
#include <string_view>

namespace boost::logging::detail {

// The bytes of an end of a glob as numbers, for a sort byte by byte. They follow the orders of the two sides in
// names/glob.h.

/// Behind the last byte of the end, where there is a "*". Comes before every byte.
constexpr unsigned int noByte = 0;

/// Of the part before the first "*", from its first byte.
struct BeginningKeys {
  static unsigned int keyAt(std::string_view _glob, std::size_t _depth) {
    if (_depth >= _glob.size() || _glob[_depth] == '*') return noByte;
    return 1U + static_cast<unsigned char>(_glob[_depth]);
  }
};

/// Of the part after the last "*", from its last byte.
struct EndingKeys {
  static unsigned int keyAt(std::string_view _glob, std::size_t _depth) {
    if (_depth >= _glob.size() || _glob[_glob.size() - 1 - _depth] == '*') return noByte;
    return static_cast<unsigned int>(1 + _glob[_glob.size() - 1 - _depth] - std::numeric_limits<char>::min());
  }
};

/// Up to which depth, beginning at one, the ends of two globs are the same; no further than the limit.
template <typename Keys>
std::size_t commonDepth(std::string_view _one, std::string_view _other, std::size_t _depth, std::size_t _limit) {
  while (_depth < _limit) {
    const unsigned int key = Keys::keyAt(_one, _depth);
    if (key == noByte || key != Keys::keyAt(_other, _depth)) break;
    ++_depth;
  }
  return _depth;
}

}  // namespace boost::logging::detail
