// SPDX-License-Identifier: MIT
#include "platform/linux/file_write.h"

#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

#include "platform/cancellation.h"
#include "platform/linux/blocked_signal.h"

namespace platform {
namespace {

// The limit belongs to the process, so one answer serves all files.
constinit std::atomic<bool> fileSizeIsLimited{true};

// The system sends the signal to the thread that writes, so its handler finds here whose write it was. In the static
// block of the thread, as a handler must not allocate.
__attribute__((tls_model("initial-exec"))) constinit thread_local volatile std::sig_atomic_t isWriting = 0;

void onSizeExceeded(int _signal) {
  if (isWriting != 0) return;
  // Somebody else's write. The signal comes again as soon as this handler returns, and then ends the process.
  struct sigaction usual {};
  usual.sa_handler = SIG_DFL;
  ::sigaction(_signal, &usual, nullptr);
  ::raise(_signal);
}

void handleSizeExceeded() {
  struct sigaction present {};
  if (::sigaction(SIGXFSZ, nullptr, &present) != 0) return;
  if ((present.sa_flags & SA_SIGINFO) != 0 || present.sa_handler != SIG_DFL) return;
  struct sigaction own {};
  own.sa_handler = &onSizeExceeded;
  own.sa_flags = SA_ONSTACK | SA_RESTART;
  ::sigaction(SIGXFSZ, &own, nullptr);
}

// write(2), without being a cancellation point as write() is: a message is written and noted as such.
ssize_t writeOnce(int _file, const char* _data, std::size_t _size) {
#if defined(__SANITIZE_THREAD__)
  // The thread sanitizer holds signals back during a call of the system that it does not know.
  const CancellationDelay delay;
  return ::write(_file, _data, _size);
#else
  return ::syscall(SYS_write, _file, _data, _size);
#endif
}

ssize_t writeUninterrupted(int _file, const char* _data, std::size_t _size) {
  ssize_t written = -1;
  isWriting = 1;
  do {
    written = writeOnce(_file, _data, _size);
  } while (written == -1 && errno == EINTR);
  isWriting = 0;
  return written;
}

}  // namespace

void refreshFileSizeLimit() {
  rlimit limit{};
  const bool unlimited = ::getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur == RLIM_INFINITY;
  fileSizeIsLimited.store(!unlimited, std::memory_order_relaxed);
  handleSizeExceeded();
}

ssize_t writeToFile(int _file, const char* _data, std::size_t _size) {
  if (!fileSizeIsLimited.load(std::memory_order_relaxed)) {
    const ssize_t written = writeUninterrupted(_file, _data, _size);
    if (written == -1 && errno == EFBIG) fileSizeIsLimited.store(true, std::memory_order_relaxed);
    return written;
  }
  BlockedSignal sizeExceeded(SIGXFSZ);
  const ssize_t written = writeUninterrupted(_file, _data, _size);
  const int error = errno;
  if (written == -1 && error == EFBIG) sizeExceeded.consume();
  errno = error;
  return written;
}

}  // namespace platform
