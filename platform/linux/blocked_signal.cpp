// SPDX-License-Identifier: MIT
#include "platform/linux/blocked_signal.h"

#include <cerrno>
#include <ctime>

#include "platform/cancellation.h"

namespace platform {

BlockedSignal::BlockedSignal(int _signal) : signal_(_signal) {
  sigemptyset(&set_);
  sigaddset(&set_, _signal);
  pthread_sigmask(SIG_BLOCK, &set_, &former_);
  wasPending_ = isPending();
}

BlockedSignal::~BlockedSignal() { pthread_sigmask(SIG_SETMASK, &former_, nullptr); }

// The signal of the write is the thread's, which the system hands out before one that is the process's. Where the
// thread had one already, the two have become one, which stays.
void BlockedSignal::consume() {
  if (take() && wasPending_ && !isPending()) ::raise(signal_);
}

bool BlockedSignal::isPending() const {
  sigset_t pending;
  sigemptyset(&pending);
  sigpending(&pending);
  return sigismember(&pending, signal_) == 1;
}

bool BlockedSignal::take() {
  // sigtimedwait is a cancellation point, the write whose signal it takes is none.
  const CancellationDelay delay;
  const timespec atOnce{};
  int taken = -1;
  do {
    taken = sigtimedwait(&set_, nullptr, &atOnce);
  } while (taken == -1 && errno == EINTR);
  return taken != -1;
}

}  // namespace platform
