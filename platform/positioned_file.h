// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace platform {

/// Tells files apart, however they are named. On Windows all are one: a file that is shared as below keeps its name
/// while it is open, so nothing needs to be told apart.
struct FileIdentity {
  std::uint64_t volume = 0;
  std::uint64_t file = 0;
  bool operator==(const FileIdentity&) const = default;
};

/// Which file the path names now; that of no file when there is none.
FileIdentity identityOfFileAt(const std::string& _path);

/// A log file with a position of its own, for one process. What is written to it goes to the position, wherever others
/// write, or to the end of a file that was opened for appending. The handle is not inherited by child programs; forked
/// children share the position. One thread at a time may use an object.
class PositionedFile {
 public:
  enum class Mode { truncate, append };

  /// Opens nothing yet.
  PositionedFile() = default;
  ~PositionedFile() { close(); }
  PositionedFile(const PositionedFile&) = delete;
  PositionedFile& operator=(const PositionedFile&) = delete;

  /// Opens the file, which must be a regular one, sharing it with other readers and writers (deny none), and creates it
  /// when it is missing (on Linux with mode 0640 less the umask); never creates a folder. On Linux a symbolic link is
  /// followed only when its folder belongs to the user or to root and nobody else may write there. The position is then
  /// the end of the file. To be called when nothing is open.
  /// @return whether it is open now.
  bool open(const std::string& _path, Mode _mode);

  /// @return whether a file was open.
  bool close();

  bool isOpen() const { return file_ != -1; }

  /// Writes the text by as few calls of the system as it takes; "\n" reaches the file as CR LF on Windows and as LF on
  /// Linux. A file size limit of the process (ulimit -f) makes it fail, and never ends the process.
  /// @return whether all was written. After a failure part of the text may have been.
  bool write(const char* _text, std::size_t _size);

  /// How many bytes of the file come before the position; -1 when nothing is open or the system does not tell.
  std::int64_t position();

  /// Which file is open; that of no file when nothing is.
  FileIdentity identity() const;

 private:
  int file_ = -1;
  /// Linux: whether the position can be counted, as it can where nobody else moves it, and what was counted.
  bool isCounted_ = false;
  std::int64_t counted_ = 0;
  std::uint64_t forksAtOpen_ = 0;
};

}  // namespace platform
