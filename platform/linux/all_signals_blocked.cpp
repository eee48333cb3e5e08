// SPDX-License-Identifier: MIT
#include "platform/all_signals_blocked.h"

#include <csignal>
#include <cstring>

namespace platform {

AllSignalsBlocked::AllSignalsBlocked() noexcept : former_{} {
  static_assert(sizeof(sigset_t) <= sizeof former_);
  sigset_t all;
  sigset_t former;
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &former);
  std::memcpy(former_, &former, sizeof former);
}

AllSignalsBlocked::~AllSignalsBlocked() {
  sigset_t former;
  std::memcpy(&former, former_, sizeof former);
  pthread_sigmask(SIG_SETMASK, &former, nullptr);
}

}  // namespace platform
