// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace boost::logging::detail {

// A number in as few bytes as it needs: seven bits in each, the lowest first; the last byte is less than 128.

inline std::size_t shortNumberSize(std::size_t _number) {
  std::size_t size = 1;
  for (; _number >= 128; _number /= 128)
    ++size;
  return size;
}

/// @return the place behind it.
inline char* writeShortNumber(char* _to, std::size_t _number) {
  for (; _number >= 128; _number /= 128)
    *_to++ = static_cast<char>(_number % 128 + 128);
  *_to++ = static_cast<char>(_number);
  return _to;
}

/// Reads the number at a place, and moves the place behind it.
inline std::size_t readShortNumber(const char*& _from) {
  const auto nextByte = [&_from] { return static_cast<unsigned char>(*_from++); };
  std::size_t byte = nextByte();
  std::size_t number = byte;
  // Nearly always one byte is all.
  for (unsigned int shift = 7; byte >= 128U; shift += 7) {
    byte = nextByte();
    // Takes back the mark of the byte before as well.
    number += (byte << shift) - (std::size_t{1} << shift);
  }
  return number;
}

}  // namespace boost::logging::detail
