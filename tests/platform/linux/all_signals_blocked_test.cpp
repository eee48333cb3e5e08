// SPDX-License-Identifier: MIT
#include "platform/all_signals_blocked.h"

#include <gtest/gtest.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <thread>

#include "platform/named_event.h"
#include "platform/thread.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/private_events.h"
#include "tests/support/sleeping_thread.h"
#include "tests/support/thread_exit_code.h"

namespace {

using namespace platform;

constexpr char event[] = "QMRK_SIGNAL_TEST";

// Every signal of the application: what the C library keeps for itself cannot be blocked.
int countBlocked() {
  sigset_t mask;
  pthread_sigmask(SIG_SETMASK, nullptr, &mask);
  int blocked = 0;
  for (int signal = 1; signal <= SIGRTMAX; ++signal) {
    blocked += sigismember(&mask, signal) == 1 ? 1 : 0;
  }
  return blocked;
}

int countSignals() {
  sigset_t all;
  sigfillset(&all);
  int signals = 0;
  for (int signal = 1; signal <= SIGRTMAX; ++signal) {
    signals += sigismember(&all, signal) == 1 && signal != SIGKILL && signal != SIGSTOP ? 1 : 0;
  }
  return signals;
}

std::uint32_t waitForTheEvent(void*) { return waitForEvent(createEvent(event), waitForever); }

TEST(AllSignalsBlocked, PassesToAThreadCreatedMeanwhile) {
  int blocked = 0;
  std::thread thread;
  {
    const AllSignalsBlocked all;
    thread = std::thread([&blocked] { blocked = countBlocked(); });
  }
  thread.join();
  EXPECT_EQ(blocked, countSignals());
}

TEST(AllSignalsBlocked, RestoresTheEarlierMask) {
  sigset_t one;
  sigemptyset(&one);
  sigaddset(&one, SIGUSR1);
  pthread_sigmask(SIG_SETMASK, &one, nullptr);
  { const AllSignalsBlocked all; }
  EXPECT_EQ(countBlocked(), 1);
  pthread_sigmask(SIG_UNBLOCK, &one, nullptr);
}

TEST(ThreadSignals, StayBlocked) {
  std::uint32_t id = 0;
  const Handle thread = createThread([](void*) { return static_cast<std::uint32_t>(countBlocked()); }, nullptr, id);
  ASSERT_EQ(waitForThread(thread, waitForever), waitObject);
  EXPECT_EQ(static_cast<int>(testsupport::exitCodeOfThread(thread)), countSignals());
  EXPECT_EQ(countBlocked(), 0);
  EXPECT_TRUE(closeHandle(thread));
}

// The application reads its SIGTERM by a descriptor, after it has created its listener. With a thread that takes the
// signal instead, the process dies.
TEST(ThreadSignals, LeaveTerminationToAnApplicationWithASignalDescriptor) {
  const int result = testsupport::inForkedChild([] {
    testsupport::usePrivateEvents();
    std::uint32_t id = 0;
    if (createThread(waitForTheEvent, nullptr, id) == nullptr) return 1;
    if (!testsupport::waitUntilThreadSleeps(id)) return 2;
    sigset_t termination;
    sigemptyset(&termination);
    sigaddset(&termination, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &termination, nullptr);
    const int descriptor = ::signalfd(-1, &termination, SFD_CLOEXEC);
    ::kill(::getpid(), SIGTERM);
    signalfd_siginfo information{};
    if (::read(descriptor, &information, sizeof information) != sizeof information) return 3;
    return information.ssi_signo == SIGTERM ? 0 : 4;
  });
  EXPECT_EQ(result, 0);
}

}  // namespace
