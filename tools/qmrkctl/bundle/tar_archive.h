// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qmrkctl {

/// An archive of files in the format ustar (POSIX.1-1988), in memory.
class TarArchive {
 public:
  /// The longest name of a file, in bytes.
  static constexpr std::size_t longestName = 99;

  /// @param _seconds since 1970 (UTC): the time that all files have.
  explicit TarArchive(std::int64_t _seconds) : seconds_(_seconds) {}

  /// Adds a regular file with mode 0600.
  /// @param _name with slashes; what is too long is cut.
  void add(std::string_view _name, std::string_view _bytes);

  /// The whole archive with its end; nothing can be added to it.
  std::string bytes() const;

 private:
  std::int64_t seconds_;
  std::string entries_;
};

/// The bytes in the format of gzip.
/// @return empty when memory is short.
std::string gzipped(std::string_view _bytes);

}  // namespace qmrkctl
