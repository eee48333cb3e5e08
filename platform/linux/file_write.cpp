// SPDX-License-Identifier: MIT
#include "platform/linux/file_write.h"

#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

#include "platform/linux/blocked_signal.h"

namespace platform {
namespace {

// The limit belongs to the process, so one answer serves all files.
constinit std::atomic<bool> fileSizeIsLimited{true};

ssize_t writeUninterrupted(int _file, const char* _data, std::size_t _size) {
  ssize_t written = -1;
  do {
    written = ::write(_file, _data, _size);
  } while (written == -1 && errno == EINTR);
  return written;
}

}  // namespace

void refreshFileSizeLimit() {
  rlimit limit{};
  const bool unlimited = ::getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur == RLIM_INFINITY;
  fileSizeIsLimited.store(!unlimited, std::memory_order_relaxed);
}

ssize_t writeToFile(int _file, const char* _data, std::size_t _size) {
  if (!fileSizeIsLimited.load(std::memory_order_relaxed)) return writeUninterrupted(_file, _data, _size);
  BlockedSignal sizeExceeded(SIGXFSZ);
  const ssize_t written = writeUninterrupted(_file, _data, _size);
  const int error = errno;
  if (written == -1 && error == EFBIG) sizeExceeded.consume();
  errno = error;
  return written;
}

}  // namespace platform
