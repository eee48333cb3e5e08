// SPDX-License-Identifier: MIT
#include "tools/system/end_request.h"

#include <sys/select.h>

#include <csignal>
#include <ctime>
#include <initializer_list>

namespace toolsystem {
namespace {

volatile std::sig_atomic_t isRequested = 0;

extern "C" void request(int /*_signal*/) { isRequested = 1; }

sigset_t requests() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP})
    sigaddset(&signals, signal);
  return signals;
}

}  // namespace

void catchEndRequests() {
  struct sigaction action {};
  action.sa_handler = request;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP})
    ::sigaction(signal, &action, nullptr);
}

void forgetEndRequest() { isRequested = 0; }

bool isEndRequested() { return isRequested != 0; }

bool sleepUnlessEnded(std::chrono::microseconds _time) {
  constexpr long million = 1'000'000;
  // The signals are let through only while it sleeps, so that none comes between the look and the sleep.
  const sigset_t signals = requests();
  sigset_t former;
  ::sigprocmask(SIG_BLOCK, &signals, &former);
  if (!isEndRequested()) {
    const timespec time{static_cast<std::time_t>(_time.count() / million), (_time.count() % million) * 1000};
    ::pselect(0, nullptr, nullptr, nullptr, &time, &former);
  }
  ::sigprocmask(SIG_SETMASK, &former, nullptr);
  return !isEndRequested();
}

}  // namespace toolsystem
