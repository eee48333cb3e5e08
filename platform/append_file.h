// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/errors.h"

namespace platform {

/// A file to which several processes append whole messages at once. On Linux it is opened with O_APPEND, and a message
/// is one write. On Windows it is opened with FILE_APPEND_DATA but not FILE_WRITE_DATA, sharing read, write and delete,
/// and a message is one WriteFile under a lock on the file, which is waited for at most 50 ms. Child processes do not
/// inherit the handle. Several threads may append at once.
class AppendFile {
 public:
  /// Identifies a file, whatever it is named.
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

  /// Opens a regular file, creating it if it is missing, along with missing folders above it (on Linux with modes 0640
  /// and 0750 less the umask). On Linux a symbolic link is followed only if its folder belongs to the user or to root
  /// and nobody else may write there.
  /// @param _truncate empties an existing file.
  /// @param _error receives the error when the result is null.
  static std::unique_ptr<AppendFile> open(const std::string& _path, bool _truncate, ErrorCode& _error);

  /// Opens the file at the path, as open does, in place of the current one. A message that another thread appends
  /// meanwhile goes whole to one file or the other. One thread at a time may call it, and none may call endsInLineFeed,
  /// identity or isStillAt meanwhile.
  /// @return noError, else why it could not be opened. Messages are then appended to the former file, or fail.
  ErrorCode reopen(const std::string& _path, bool _truncate);

  ~AppendFile();
  AppendFile(const AppendFile&) = delete;
  AppendFile& operator=(const AppendFile&) = delete;

  /// Appends the bytes as one message: on Linux as they are, on Windows every "\n" as CR LF. A file size limit of the
  /// process (ulimit -f) gives a short or failed write, never a signal that ends the process.
  Result append(const char* _data, std::size_t _size);

  /// Whether the file is empty or ends with a line feed; true as well when that cannot be found out. A message that
  /// somebody is appending does not count as a fragment.
  bool endsInLineFeed() const;

  /// The identity of the open file.
  Identity identity() const { return identity_; }

  /// Whether the path still names the open file: false once the file or its folder was removed, renamed or replaced, or
  /// the application has closed the file, as a daemon closes all numbers; true as well when that cannot be found out.
  bool isStillAt(const std::string& _path) const;

 private:
  AppendFile(std::intptr_t _file, Identity _identity);

  /// Another one after reopen on Linux, if the application has closed it.
  std::atomic<std::intptr_t> file_;
  /// On Linux: how many logs of the process had had that number when this one got it, with this one.
  std::uint32_t numberUses_ = 0;
  Identity identity_;
};

/// Shows other threads what a thread's latest append did, in case the thread is ended inside it, as happens at the end
/// of a Windows process. The system itself notes the success along with the write, so there is no moment between the
/// two. Does nothing on Linux, where nothing ends a thread there.
class AppendWatch {
 public:
  AppendWatch() { restart(); }
  AppendWatch(const AppendWatch&) = delete;
  AppendWatch& operator=(const AppendWatch&) = delete;

  /// Shows what the calling thread appends from now on; must outlive it.
  void watchThisThread();

  /// The thread calls it before an append.
  void restart();

  /// Whether bytes have reached a file since restart().
  bool hasAppended() const;

 private:
  /// What the system takes with a write.
  std::uintptr_t state_[5];
};

}  // namespace platform
