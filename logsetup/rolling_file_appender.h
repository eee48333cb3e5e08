// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "logsetup/file_appender.h"

namespace boost::logging {

// NOLINTBEGIN(readability-identifier-naming): the log manager's namespace has names in snake case.

/// Appends every message to one file and, when the file has reached a size, renames it to a numbered backup and starts
/// a new one. Two appenders on the same file know nothing of each other.
class rolling_file_appender : public file_appender {
 public:
  /// @param _maxSize size in bytes at or above which the file is rolled after a message; 0 never rolls, and a negative
  ///   size rolls after every message.
  /// @param _fileCount number of backups kept, ".1" (the newest) to "." and this number; 0 or less keeps none, and the
  ///   file is only emptied. The other arguments are those of file_appender. The existing size of a continued file
  ///   counts.
  rolling_file_appender(const std::string& _fileName, std::int32_t _maxSize, std::int32_t _fileCount,
                        name_function _nameFn, bool _append);

  /// Writes the message and then rolls when the stream's position has reached the size, so that the message that
  /// crosses it stays in the old file. When roll() throws, the exception leaves the call and the stream is closed; it
  /// stays closed, and later messages are lost (a closed or failed stream has the position -1, which only a negative
  /// size reaches: then every later message tries to roll again).
  void write(const std::string& _msg) override;

  /// Moves each backup that exists up by one number, the highest first, and the file itself to ".1". A gap stays until
  /// a file moves into it, and the last backup is removed only when another takes its place.
  /// @param _name the current file name.
  /// Throws boost::filesystem::filesystem_error when a file cannot be removed or renamed.
  virtual void roll(const std::string& _name);

 protected:
  std::int32_t max_size;
  std::int32_t file_count;
};

// NOLINTEND(readability-identifier-naming)

}  // namespace boost::logging
