// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace boost::logging::detail {

/// Hashes names byte by byte (FNV-1a), so that the hashes of all beginnings of a name fall out of one pass.
struct NameHash {
  using is_transparent = void;

  static constexpr std::uint64_t START = 14695981039346656037U;

  static constexpr std::uint64_t next(std::uint64_t _hash, char _character) {
    constexpr std::uint64_t PRIME = 1099511628211U;
    return (_hash ^ static_cast<unsigned char>(_character)) * PRIME;
  }

  std::size_t operator()(std::string_view _name) const {
    std::uint64_t hash = START;
    for (const char character : _name)
      hash = next(hash, character);
    return static_cast<std::size_t>(hash);
  }
};

}  // namespace boost::logging::detail
