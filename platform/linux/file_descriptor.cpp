// SPDX-License-Identifier: MIT
#include "platform/linux/file_descriptor.h"

#include <cerrno>
#include <utility>

#include "platform/cancellation.h"

namespace platform {

void closeDescriptor(int _file) {
  const CancellationDelay delay;
  ::close(_file);
}

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
  closeDescriptor(std::exchange(file_, -1));
  errno = error;
}

}  // namespace platform
