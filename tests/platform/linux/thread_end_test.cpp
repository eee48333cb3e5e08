// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "platform/named_event.h"
#include "platform/thread.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/private_events.h"
#include "tests/support/process_resources.h"
#include "tests/support/thread_exit_code.h"

namespace {

using namespace platform;
using testsupport::exitCodeOfThread;

constexpr char endEvent[] = "QMRK_THREAD_TEST";
constexpr unsigned int nobody = 65534;
constexpr int tryAgain = 11;  // EAGAIN, which has no Windows counterpart

// A thread that works when the event is set, as long as the test lets it, and waits again.
struct Work {
  std::atomic<bool> hasBegun{false};
  std::atomic<bool> mayEnd{false};
  std::atomic<bool> isDone{false};
};

std::uint32_t workOnce(void* _work) {
  auto& work = *static_cast<Work*>(_work);
  const Handle event = createEvent(endEvent);
  waitForEvent(event, waitForever);
  work.hasBegun = true;
  while (!work.mayEnd) {
    std::this_thread::yield();
  }
  work.isDone = true;
  resetEvent(event);
  waitForEvent(event, waitForever);
  return 42;
}

class ThreadEnd : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { testsupport::usePrivateEvents(); }
};

TEST_F(ThreadEnd, ComesOnlyWhenTheThreadWaitsForAnEvent) {
  Work work;
  std::uint32_t id = 0;
  const Handle event = createEvent(endEvent);
  ASSERT_TRUE(setEvent(event));
  const Handle thread = createThread(workOnce, &work, id);
  while (!work.hasBegun) {
    std::this_thread::yield();
  }
  std::thread terminator([thread] { EXPECT_TRUE(terminateThread(thread, 1)); });
  EXPECT_EQ(waitForThread(thread, 100), waitTimeout);
  work.mayEnd = true;
  terminator.join();
  EXPECT_TRUE(work.isDone);
  EXPECT_EQ(waitForEvent(event, 0), waitTimeout);
  EXPECT_EQ(exitCodeOfThread(thread), 1U);
  EXPECT_TRUE(closeHandle(thread));
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(ThreadEnd, UnwindsTheStack) {
  struct Mark {
    std::atomic<bool>& flag;
    ~Mark() { flag = true; }
  };
  std::atomic<bool> unwound{false};
  std::uint32_t id = 0;
  const Handle thread = createThread(
      [](void* _unwound) {
        const Mark mark{*static_cast<std::atomic<bool>*>(_unwound)};
        return waitForEvent(createEvent(endEvent), waitForever);
      },
      &unwound, id);
  EXPECT_TRUE(terminateThread(thread, 1));
  EXPECT_TRUE(unwound);
  EXPECT_TRUE(closeHandle(thread));
}

TEST_F(ThreadEnd, ComesAtTheNextWaitOfAThreadThatTerminatesItself) {
  std::uint32_t id = 0;
  std::atomic<Handle> shared{nullptr};
  const Handle start = createEvent("QMRK_THREAD_TEST.start");
  const Handle thread = createThread(
      [](void* _shared) {
        waitForEvent(openEvent("QMRK_THREAD_TEST.start"), waitForever);
        EXPECT_TRUE(terminateThread(*static_cast<std::atomic<Handle>*>(_shared), 5));
        waitForEvent(createEvent(endEvent), waitForever);
        return 42U;
      },
      &shared, id);
  shared = thread;
  ASSERT_TRUE(setEvent(start));
  EXPECT_EQ(waitForThread(thread, waitForever), waitObject);
  EXPECT_EQ(exitCodeOfThread(thread), 5U);
  EXPECT_TRUE(closeHandle(thread));
  EXPECT_TRUE(closeHandle(start));
}

// A thread that is not ended there ends by itself after a minute, so that the test fails and does not hang.
TEST_F(ThreadEnd, ComesEvenInAWaitThatIsSatisfiedAtOnce) {
  std::uint32_t id = 0;
  std::atomic<bool> hasBegun{false};
  const Handle event = createEvent(endEvent);
  ASSERT_TRUE(setEvent(event));
  const Handle thread = createThread(
      [](void* _hasBegun) {
        const Handle own = createEvent(endEvent);
        *static_cast<std::atomic<bool>*>(_hasBegun) = true;
        const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
        while (std::chrono::steady_clock::now() < end) {
          waitForEvent(own, waitForever);
        }
        return 42U;
      },
      &hasBegun, id);
  while (!hasBegun) {
    std::this_thread::yield();
  }
  EXPECT_TRUE(terminateThread(thread, 1));
  EXPECT_EQ(exitCodeOfThread(thread), 1U);
  EXPECT_TRUE(closeHandle(thread));
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(ThreadEnd, LeavesNothingBehindHoweverItComes) {
  const auto once = [](bool _terminate) {
    std::uint32_t id = 0;
    const Handle event = createEvent(endEvent);
    const Handle thread = createThread(
        [](void*) {
          const Handle own = createEvent(endEvent);
          waitForEvent(own, waitForever);
          closeHandle(own);
          return 0U;
        },
        nullptr, id);
    _terminate ? terminateThread(thread, 1) : setEvent(event);
    ASSERT_EQ(waitForThread(thread, waitForever), waitObject);
    ASSERT_TRUE(closeHandle(thread));
    ASSERT_TRUE(closeHandle(event));
  };
  once(true);
  once(false);
  const auto before = testsupport::processResources();
  for (int round = 0; round < 500; ++round) {
    once(round % 2 == 0);
  }
  EXPECT_EQ(testsupport::processResources(), before);
}

// A user that may have no more processes; root would be let through.
TEST_F(ThreadEnd, NeverComesToAThreadThatCannotStart) {
  EXPECT_EQ(testsupport::inForkedChild([] {
              const rlimit none{0, 0};
              if (::setrlimit(RLIMIT_NPROC, &none) != 0 || ::setresuid(nobody, nobody, nobody) != 0) return 1;
              std::uint32_t id = 42;
              const Handle thread = createThread([](void*) { return 0U; }, nullptr, id);
              if (thread != nullptr || id != 42) return 2;
              return lastError() == tryAgain ? 0 : 3;
            }),
            0);
}

}  // namespace
