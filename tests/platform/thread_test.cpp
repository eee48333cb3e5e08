// SPDX-License-Identifier: MIT
#include "platform/thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "platform/named_event.h"
#include "platform/process.h"
#include "tests/support/fault_plan.h"
#include "tests/support/private_events.h"
#include "tests/support/sleeping_thread.h"
#include "tests/support/thread_exit_code.h"

namespace {

using namespace platform;
using testsupport::exitCodeOfThread;
using testsupport::FaultPlan;

constexpr char threadEvent[] = "QMRK_THREAD_TEST";

class Thread : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { testsupport::usePrivateEvents(); }
};

std::uint32_t returnNumber(void* _number) { return *static_cast<std::uint32_t*>(_number); }

// Creates the event, announces it by setting the flag, and waits for ever.
std::uint32_t waitForever(void* _isWaiting) {
  const Handle event = createEvent(threadEvent);
  static_cast<std::atomic<bool>*>(_isWaiting)->store(true);
  waitForEvent(event, platform::waitForever);
  closeHandle(event);
  return 0;
}

void waitFor(const std::atomic<bool>& _flag) {
  while (!_flag) {
    std::this_thread::yield();
  }
}

TEST_F(Thread, ExitsWithTheResultOfItsRoutine) {
  for (std::uint32_t number : {0U, 1U, 7U, 259U, 0xFFFFFFFFU}) {
    std::uint32_t id = 0;
    const Handle thread = createThread(returnNumber, &number, id);
    ASSERT_NE(thread, nullptr);
    EXPECT_EQ(lastError(), noError);
    EXPECT_EQ(waitForThread(thread, platform::waitForever), waitObject);
    EXPECT_EQ(exitCodeOfThread(thread), number);
    EXPECT_TRUE(closeHandle(thread));
  }
}

TEST_F(Thread, HasTheIdThatItSees) {
  std::uint32_t seen = 0;
  std::uint32_t id = 0;
  const Handle thread = createThread(
      [](void* _seen) {
        *static_cast<std::uint32_t*>(_seen) = threadId();
        return 0U;
      },
      &seen, id);
  ASSERT_EQ(waitForThread(thread, platform::waitForever), waitObject);
  EXPECT_NE(id, 0U);
  EXPECT_EQ(id, seen);
  EXPECT_TRUE(closeHandle(thread));
}

TEST_F(Thread, IsStillActiveAndTimesOutWhileItRuns) {
  std::atomic<bool> isWaiting{false};
  std::uint32_t id = 0;
  const Handle thread = createThread(waitForever, &isWaiting, id);
  waitFor(isWaiting);
  EXPECT_EQ(waitForThread(thread, 0), waitTimeout);
  EXPECT_EQ(waitForThread(thread, 20), waitTimeout);
  EXPECT_EQ(exitCodeOfThread(thread), stillActive);
  const Handle event = openEvent(threadEvent);
  setEvent(event);
  EXPECT_EQ(waitForThread(thread, platform::waitForever), waitObject);
  EXPECT_TRUE(closeHandle(event));
  EXPECT_TRUE(closeHandle(thread));
}

TEST_F(Thread, EndsWhenTerminatedDuringAWait) {
  std::atomic<bool> isWaiting{false};
  std::uint32_t id = 0;
  const Handle thread = createThread(waitForever, &isWaiting, id);
  waitFor(isWaiting);
  // On Windows, a thread that is terminated before may leave a lock of the system taken for ever.
  ASSERT_TRUE(testsupport::waitUntilThreadSleeps(id));
  EXPECT_TRUE(terminateThread(thread, 1));
  EXPECT_EQ(waitForThread(thread, platform::waitForever), waitObject);
  EXPECT_EQ(exitCodeOfThread(thread), 1U);
  EXPECT_TRUE(closeHandle(thread));
}

TEST_F(Thread, CannotBeTerminatedAfterItsEnd) {
  std::uint32_t number = 3;
  std::uint32_t id = 0;
  const Handle thread = createThread(returnNumber, &number, id);
  ASSERT_EQ(waitForThread(thread, platform::waitForever), waitObject);
  EXPECT_FALSE(terminateThread(thread, 1));
  EXPECT_EQ(lastError(), errorAccessDenied);
  EXPECT_EQ(exitCodeOfThread(thread), 3U);
  EXPECT_TRUE(closeHandle(thread));
}

TEST_F(Thread, AllowsSeveralWaits) {
  std::uint32_t number = 0;
  std::uint32_t id = 0;
  const Handle thread = createThread(returnNumber, &number, id);
  std::thread other([thread] { EXPECT_EQ(waitForThread(thread, platform::waitForever), waitObject); });
  EXPECT_EQ(waitForThread(thread, platform::waitForever), waitObject);
  EXPECT_EQ(waitForThread(thread, 0), waitObject);
  other.join();
  EXPECT_TRUE(closeHandle(thread));
}

TEST_F(Thread, RunsOnAfterItsHandleIsClosed) {
  std::atomic<bool> isWaiting{false};
  std::uint32_t id = 0;
  const Handle thread = createThread(waitForever, &isWaiting, id);
  const Handle second = duplicateHandle(thread);
  waitFor(isWaiting);
  EXPECT_TRUE(closeHandle(thread));
  const Handle event = openEvent(threadEvent);
  setEvent(event);
  EXPECT_EQ(waitForThread(second, platform::waitForever), waitObject);
  EXPECT_EQ(exitCodeOfThread(second), 0U);
  EXPECT_TRUE(closeHandle(event));
  EXPECT_TRUE(closeHandle(second));
}

TEST_F(Thread, RefusesAClosedHandle) {
  std::uint32_t number = 0;
  std::uint32_t id = 0;
  const Handle thread = createThread(returnNumber, &number, id);
  ASSERT_TRUE(closeHandle(thread));
  EXPECT_FALSE(closeHandle(thread));
  EXPECT_EQ(lastError(), errorInvalidHandle);
  EXPECT_EQ(waitForThread(thread, platform::waitForever), waitFailed);
  EXPECT_EQ(lastError(), errorInvalidHandle);
  EXPECT_FALSE(terminateThread(thread, 1));
  EXPECT_EQ(lastError(), errorInvalidHandle);
  std::uint32_t code = 42;
  EXPECT_FALSE(threadExitCode(thread, code));
  EXPECT_EQ(code, 42U);
}

TEST_F(Thread, DoesNotStartWhenTheSystemRefuses) {
  const FaultPlan plan(Call::createThread, 1, errorAccessDenied);
  std::uint32_t number = 0;
  std::uint32_t id = 42;
  EXPECT_EQ(createThread(returnNumber, &number, id), nullptr);
  EXPECT_EQ(lastError(), errorAccessDenied);
  EXPECT_EQ(id, 42U);
}

}  // namespace
