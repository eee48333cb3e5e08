// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace toolsystem {

/// Identifies a file, whatever its name. A file that replaces a removed one has another id, if the file system records
/// when files were created.
struct FileId {
  std::uint64_t volume = 0;
  std::uint64_t file = 0;
  std::uint64_t created = 0;
  bool operator==(const FileId&) const = default;
};

enum class OpenResult { opened, missing, denied, unreadable };

/// Reads a log of another process without ever blocking that process when it writes or renames the file: on Windows,
/// where an open file could, it is open only during a call. Movable; for one thread.
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

  /// Opens a regular file without waiting; anything else is unreadable. Closes the former file first.
  /// @param _path with separators of either kind.
  OpenResult open(const std::string& _path);

  bool isOpen() const { return id_ != FileId(); }
  FileId id() const { return id_; }

  /// The size in bytes; -1 if it is unknown. After a rename or removal the file stays readable on Linux; on Windows it
  /// must first be opened under its new name.
  std::int64_t size() const;

  /// Reads at most _size bytes.
  /// @return how many were read; 0 at the end of the file or if it cannot be read.
  std::size_t readAt(std::int64_t _offset, char* _buffer, std::size_t _size) const;

 private:
  void close();
  void swap(LogFile& _other) noexcept;

  std::string path_;
  FileId id_;
  int descriptor_ = -1;
};

/// The file that a path (with separators of either kind) names now; FileId() if there is none or it is unknown.
FileId fileIdAt(const std::string& _path);

}  // namespace toolsystem
