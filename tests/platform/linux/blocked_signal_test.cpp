// SPDX-License-Identifier: MIT
#include "platform/linux/blocked_signal.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <ctime>

namespace {

using platform::BlockedSignal;

bool isBlocked(int _signal) {
  sigset_t mask;
  ::pthread_sigmask(SIG_BLOCK, nullptr, &mask);
  return sigismember(&mask, _signal) == 1;
}

TEST(BlockedSignal, StaysBlockedInTheThreadWhileTheObjectLives) {
  EXPECT_FALSE(isBlocked(SIGUSR1));
  {
    const BlockedSignal blocked(SIGUSR1);
    EXPECT_TRUE(isBlocked(SIGUSR1));
    EXPECT_FALSE(isBlocked(SIGUSR2));
  }
  EXPECT_FALSE(isBlocked(SIGUSR1));
}

TEST(BlockedSignal, StaysBlockedIfItWasBlockedBefore) {
  const BlockedSignal outer(SIGUSR1);
  { const BlockedSignal inner(SIGUSR1); }
  EXPECT_TRUE(isBlocked(SIGUSR1));
}

TEST(BlockedSignal, NeverArrivesOnceConsumed) {
  BlockedSignal blocked(SIGUSR1);
  ::raise(SIGUSR1);
  blocked.consume();
}

TEST(BlockedSignal, CanBeConsumedEvenIfItIsIgnored) {
  struct sigaction ignore {};
  struct sigaction former {};
  ignore.sa_handler = SIG_IGN;
  ::sigaction(SIGUSR1, &ignore, &former);
  {
    BlockedSignal blocked(SIGUSR1);
    ::raise(SIGUSR1);
    blocked.consume();
    sigset_t pending;
    ::sigpending(&pending);
    EXPECT_EQ(sigismember(&pending, SIGUSR1), 0);
  }
  ::sigaction(SIGUSR1, &former, nullptr);
}

enum class Sent { never, toThread, toProcess };

void sendToProcess() { ::sigqueue(::getpid(), SIGUSR1, {}); }

/// Takes a pending SIGUSR1.
Sent takePending() {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGUSR1);
  siginfo_t info{};
  const timespec atOnce{};
  if (::sigtimedwait(&set, &info, &atOnce) != SIGUSR1) return Sent::never;
  return info.si_code == SI_QUEUE ? Sent::toProcess : Sent::toThread;
}

TEST(BlockedSignal, StaysIfTheProcessHadItBeforeTheWrite) {
  const BlockedSignal outer(SIGUSR1);
  sendToProcess();
  BlockedSignal blocked(SIGUSR1);
  ::raise(SIGUSR1);
  blocked.consume();
  EXPECT_EQ(takePending(), Sent::toProcess);
  EXPECT_EQ(takePending(), Sent::never);
}

TEST(BlockedSignal, StaysIfTheProcessGetsItDuringTheWrite) {
  const BlockedSignal outer(SIGUSR1);
  BlockedSignal blocked(SIGUSR1);
  sendToProcess();
  ::raise(SIGUSR1);
  blocked.consume();
  EXPECT_EQ(takePending(), Sent::toProcess);
  EXPECT_EQ(takePending(), Sent::never);
}

TEST(BlockedSignal, StaysIfTheThreadHadItBefore) {
  const BlockedSignal outer(SIGUSR1);
  ::raise(SIGUSR1);
  BlockedSignal blocked(SIGUSR1);
  ::raise(SIGUSR1);
  blocked.consume();
  EXPECT_EQ(takePending(), Sent::toThread);
  EXPECT_EQ(takePending(), Sent::never);
}

TEST(BlockedSignal, NeedsNoWaitWhenNoneCame) {
  BlockedSignal blocked(SIGUSR1);
  blocked.consume();
  EXPECT_TRUE(isBlocked(SIGUSR1));
}

}  // namespace
