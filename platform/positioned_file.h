// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/errors.h"

namespace platform {

/// A log file with a position of its own, for one process. Text is written at the position, wherever others write, or
/// at the end of a file opened for appending. Child programs do not inherit the handle; forked children share the
/// position. One thread at a time may use an object.
class PositionedFile {
 public:
  enum class Mode { truncate, append };

  /// Opens nothing yet.
  PositionedFile() = default;
  ~PositionedFile() { close(); }
  PositionedFile(const PositionedFile&) = delete;
  PositionedFile& operator=(const PositionedFile&) = delete;

  /// Opens a regular file, sharing it with other readers and writers (deny none), and creates it if it is missing (on
  /// Linux with mode 0640 less the umask); never creates a folder. On Linux a symbolic link is followed only if its
  /// folder belongs to the user or to root and nobody else may write there. The position is then the end of the file.
  /// Call it only when nothing is open.
  /// @return whether it is open now.
  bool open(const std::string& _path, Mode _mode);

  /// @return whether a file was open.
  bool close();

  bool isOpen() const { return file_ != -1; }

  /// Writes the text by as few system calls as possible; "\n" reaches the file as CR LF on Windows and as LF on Linux.
  /// A file size limit of the process (ulimit -f) makes it fail, but never ends the process.
  /// @return whether all was written. After a failure, a part may have been.
  bool write(const char* _text, std::size_t _size);

  /// Why the latest failing open or write failed; noError when none has.
  ErrorCode error() const { return error_; }

  /// How many bytes of the file come before the position; -1 when nothing is open or the system does not say.
  std::int64_t position();

 private:
  bool fails(ErrorCode _error);

  int file_ = -1;
  ErrorCode error_ = noError;
  /// Linux: whether the position can be counted, because nobody else moves it, and the count.
  bool isCounted_ = false;
  std::int64_t counted_ = 0;
  std::uint64_t forksAtOpen_ = 0;
};

}  // namespace platform
