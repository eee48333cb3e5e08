// SPDX-License-Identifier: MIT
#include "platform/linux/blocked_signal.h"

#include <cerrno>
#include <ctime>

namespace platform {

BlockedSignal::BlockedSignal(int _signal) {
  sigset_t pending;
  sigemptyset(&pending);
  sigpending(&pending);
  wasPending_ = sigismember(&pending, _signal) == 1;
  sigemptyset(&signal_);
  sigaddset(&signal_, _signal);
  pthread_sigmask(SIG_BLOCK, &signal_, &former_);
}

BlockedSignal::~BlockedSignal() { pthread_sigmask(SIG_SETMASK, &former_, nullptr); }

void BlockedSignal::consume() {
  if (wasPending_) return;
  const timespec atOnce{};
  while (sigtimedwait(&signal_, nullptr, &atOnce) == -1 && errno == EINTR) {
  }
}

}  // namespace platform
