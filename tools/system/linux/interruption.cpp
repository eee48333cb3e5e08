// SPDX-License-Identifier: MIT
#include "tools/system/interruption.h"

#include <poll.h>
#include <unistd.h>

#include <csignal>

namespace toolsystem {
namespace {

volatile std::sig_atomic_t wasInterrupted = 0;

void onInterruption(int) { wasInterrupted = 1; }

}  // namespace

void catchInterruption() {
  struct sigaction action {};
  action.sa_handler = onInterruption;
  ::sigaction(SIGINT, &action, nullptr);
}

Pause pauseFor(int _milliseconds) {
  if (wasInterrupted != 0) return Pause::interrupted;
  // Without an event asked for, only errors and a closed end are reported.
  struct pollfd output = {STDOUT_FILENO, 0, 0};
  const int events = ::poll(&output, 1, _milliseconds);
  if (wasInterrupted != 0) return Pause::interrupted;
  return events > 0 ? Pause::readerGone : Pause::over;
}

}  // namespace toolsystem
