// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

namespace platform {

/// Closes a file. No cancellation point, unlike close(2): destructors call it.
void closeDescriptor(int _file);

/// Owns a file descriptor. Closing leaves errno as it is, so that an error can be reported afterwards.
class FileDescriptor {
 public:
  explicit FileDescriptor(int _file = -1) : file_(_file) {}
  ~FileDescriptor() { reset(); }
  FileDescriptor(FileDescriptor&& _other) noexcept : file_(_other.release()) {}
  FileDescriptor& operator=(FileDescriptor&& _other) noexcept;
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  bool isOpen() const { return file_ >= 0; }
  int get() const { return file_; }
  int release();
  void reset();

 private:
  int file_;
};

}  // namespace platform
