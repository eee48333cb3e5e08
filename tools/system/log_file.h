// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace toolsystem {

/// Tells files apart, whatever they are named. A file that takes the place of a removed one is another one, as far as
/// the file system remembers when files were created.
struct FileId {
  std::uint64_t volume = 0;
  std::uint64_t file = 0;
  std::uint64_t created = 0;
  bool operator==(const FileId&) const = default;
};

enum class OpenResult { opened, missing, denied, unreadable };

/// A log of another process, for reading. Never holds up the process that writes it or renames it: on Windows, where an
/// open file can do that, the file is open only during a call. Movable; for one thread.
class LogFile {
 public:
  LogFile() = default;
  ~LogFile() { close(); }
  LogFile(LogFile&& _other) noexcept { swap(_other); }
  LogFile& operator=(LogFile&& _other) noexcept {
    swap(_other);
    return *this;
  }
  LogFile(const LogFile&) = delete;
  LogFile& operator=(const LogFile&) = delete;

  /// Opens a regular file without waiting; anything else is unreadable. A file that was open is closed first.
  /// @param _path with separators of either kind.
  OpenResult open(const std::string& _path);

  bool isOpen() const { return id_ != FileId(); }
  FileId id() const { return id_; }

  /// In bytes; -1 when it cannot be found out. On Linux a file that was renamed or removed meanwhile can still be asked
  /// and read; on Windows not before it is opened under its new name.
  std::int64_t size() const;

  /// Reads at most _size bytes.
  /// @return how many there were; 0 at the end of the file and when it cannot be read.
  std::size_t readAt(std::int64_t _offset, char* _buffer, std::size_t _size) const;

 private:
  void close();
  void swap(LogFile& _other) noexcept;

  std::string path_;
  FileId id_;
  int descriptor_ = -1;
};

/// The file that a path names now; none, FileId(), when there is none or it cannot be asked.
FileId fileIdAt(const std::string& _path);

}  // namespace toolsystem
