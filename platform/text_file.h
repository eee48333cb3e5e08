// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/text_pieces.h"

namespace platform {

/// A larger text file counts as a mistake and is not read.
constexpr std::int64_t largestTextFile = std::int64_t{64} * 1024 * 1024;

/// Whether a file has more bytes than that; false when that cannot be found out.
bool isTooLargeToRead(const std::string& _path);

/// Whether the last line of a file has no end, as a write leaves it that met a full disk, or a process that was killed;
/// false when that cannot be found out.
bool endsInsideLine(const std::string& _path);

/// A text file open for reading. Sharing is unrestricted (deny none); the handle is not inherited by child processes.
/// One thread at a time may use an object.
class TextReader {
 public:
  /// Opens the file without waiting. A folder, a pipe, a socket, a device or a file that is too large cannot be opened.
  explicit TextReader(const std::string& _path);
  ~TextReader();
  TextReader(const TextReader&) = delete;
  TextReader& operator=(const TextReader&) = delete;

  bool isOpen() const;

  /// Appends everything up to the end of the file to the text; each CR LF arrives as a single LF on both platforms.
  /// Takes no more memory than the text.
  /// @return false when the file is not open, a read failed or the file has become too large; a part of the text may
  ///   have been appended then.
  bool readAll(std::string& _text);
  bool readAll(TextPieces& _text);

 private:
  int file_ = -1;
};

/// A text file open for writing. Sharing is unrestricted (deny none); the handle is not inherited by child processes.
/// One thread at a time may use an object.
class TextWriter {
 public:
  /// Truncate or create configuration files, append to files of records.
  enum class Mode { truncate, create, append };

  /// Opens a regular file, creating it if it is missing (on Linux with mode 0644, for records 0640, less the umask);
  /// never creates a folder. With Mode::create it must be missing, and a link counts as there. On Linux a symbolic link
  /// in place of records is followed only if its folder belongs to the user or to root and nobody else may write there.
  TextWriter(const std::string& _path, Mode _mode);
  ~TextWriter();
  TextWriter(const TextWriter&) = delete;
  TextWriter& operator=(const TextWriter&) = delete;

  bool isOpen() const;

  /// Writes the text, in one system call where possible; "\n" reaches the file as CR LF on Windows and as LF on Linux.
  /// @return false when the file is not open or not everything was written.
  bool write(const std::string& _text);

 private:
  int file_ = -1;
};

}  // namespace platform
