// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace boost::logging::detail {

/// A hash of a name of a log. Names are short, so it is computed in place: eight characters with each multiplication.
/// All of its bits may be used. It differs between machines, and is not for texts that an attacker chooses.
inline std::size_t hashOfName(std::string_view _name) {
  constexpr std::uint64_t oddFactor = 0x9E3779B97F4A7C15U;
  const auto mixed = [](std::uint64_t _hash, std::uint64_t _word) {
    const std::uint64_t product = (_hash ^ _word) * oddFactor;
    return product ^ (product >> 32U);
  };
  const auto wordAt = [](const char* _text, std::size_t _size) {
    std::uint64_t word = 0;
    std::memcpy(&word, _text, _size);
    return word;
  };
  constexpr std::size_t wordSize = sizeof(std::uint64_t);
  const char* text = _name.data();
  std::size_t left = _name.size();
  std::uint64_t hash = left;
  for (; left >= wordSize; left -= wordSize, text += wordSize)
    hash = mixed(hash, wordAt(text, wordSize));
  if (_name.size() >= wordSize) {
    // The last word overlaps the one before: a size that is known when it is compiled needs no call.
    hash = mixed(hash, wordAt(_name.data() + _name.size() - wordSize, wordSize));
  } else if (left != 0) {
    hash = mixed(hash, wordAt(text, left));
  }
  return static_cast<std::size_t>(mixed(hash, hash >> 29U));
}

}  // namespace boost::logging::detail
