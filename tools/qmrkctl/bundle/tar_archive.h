// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qmrkctl {

/// An archive in ustar format (POSIX.1-1988), in memory.
class TarArchive {
 public:
  /// The longest file name, in bytes.
  static constexpr std::size_t longestName = 99;

  /// @param _seconds since 1970 (UTC): the time stamp of all files.
  explicit TarArchive(std::int64_t _seconds) : seconds_(_seconds) {}

  /// Adds a regular file with mode 0600.
  /// @param _name with slashes; cut after longestName bytes.
  void add(std::string_view _name, std::string_view _bytes);

  /// The complete archive, with its end marker. Further files can still be added to the object.
  std::string bytes() const;

 private:
  std::int64_t seconds_;
  std::string entries_;
};

/// The bytes in gzip format.
/// @return empty if zlib fails.
std::string gzipped(std::string_view _bytes);

}  // namespace qmrkctl
