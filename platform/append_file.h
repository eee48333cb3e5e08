// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/errors.h"

namespace platform {

/// A file to which several processes append whole messages at once. On Linux it is opened with O_APPEND and a message
/// is one write; on Windows with FILE_APPEND_DATA but not FILE_WRITE_DATA, sharing read, write and delete, and a
/// message is one WriteFile inside a lock on the file that is waited for at most 50 ms. The handle is not inherited by
/// child processes. Several threads may append at once.
class AppendFile {
 public:
  /// What identifies a file however it is named.
  struct Identity {
    std::uint64_t volume = 0;
    std::uint64_t file = 0;
    bool operator==(const Identity& _other) const { return volume == _other.volume && file == _other.file; }
  };

  struct Result {
    /// Bytes of the message that reached the file.
    std::size_t written = 0;
    /// noError when all of them did.
    ErrorCode error = noError;
  };

  /// Opens the file, which must be a regular one, and creates it when it is missing, with its missing folder and that
  /// one's missing parents (on Linux with modes 0640 and 0750 less the umask). On Linux a symbolic link is followed
  /// only when its folder belongs to the user or to root and nobody else may write there.
  /// @param _truncate empties an existing file.
  /// @param _error receives the error when the result is null.
  static std::unique_ptr<AppendFile> open(const std::string& _path, bool _truncate, ErrorCode& _error);

  /// Opens the file at the path, as open does, in place of the one that is open. A message that another thread appends
  /// meanwhile goes whole to the one file or to the other. By one thread at a time, without endsInLineFeed, identity
  /// and isStillAt of others.
  /// @return noError, else why it could not be opened: what messages append to is then the former file, or no file at
  ///   all, so that they fail.
  ErrorCode reopen(const std::string& _path, bool _truncate);

  ~AppendFile();
  AppendFile(const AppendFile&) = delete;
  AppendFile& operator=(const AppendFile&) = delete;

  /// Appends the bytes as one message: on Linux as they are, on Windows every "\n" as CR LF. A file size limit of the
  /// process (ulimit -f) gives a short or failed write, never a signal that ends the process.
  Result append(const char* _data, std::size_t _size);

  /// Whether the file is empty or ends in a line feed; true as well when that cannot be told. A message that another
  /// is appending meanwhile does not count as a piece.
  bool endsInLineFeed() const;

  /// The identity of the open file.
  Identity identity() const { return identity_; }

  /// Whether the path still names the open file: false once it was removed, renamed or replaced, or its folder was;
  /// true as well when that cannot be told.
  bool isStillAt(const std::string& _path) const;

 private:
  AppendFile(std::intptr_t _file, Identity _identity);

  std::intptr_t file_;
  Identity identity_;
};

/// Shows what a thread's latest append has done to others who find the thread ended inside it, as happens at the end of
/// a Windows process. It is the system that notes the success, with the write, so that there is no moment between the
/// two. Without effect on Linux, where a thread is not ended there.
class AppendWatch {
 public:
  AppendWatch() { restart(); }
  AppendWatch(const AppendWatch&) = delete;
  AppendWatch& operator=(const AppendWatch&) = delete;

  /// From now on shows what the calling thread appends; has to outlive that.
  void watchThisThread();

  /// To be called by that thread before an append.
  void restart();

  /// Whether bytes have reached a file since then.
  bool hasAppended() const;

 private:
  /// What the system takes with a write.
  std::uintptr_t state_[5];
};

}  // namespace platform
