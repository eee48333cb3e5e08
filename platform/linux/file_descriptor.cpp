// SPDX-License-Identifier: MIT
#include "platform/linux/file_descriptor.h"

#include <cerrno>
#include <utility>

namespace platform {

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& _other) noexcept {
  if (this != &_other) {
    reset();
    file_ = _other.release();
  }
  return *this;
}

int FileDescriptor::release() { return std::exchange(file_, -1); }

void FileDescriptor::reset() {
  if (file_ < 0) return;
  const int error = errno;
  ::close(std::exchange(file_, -1));
  errno = error;
}

}  // namespace platform
