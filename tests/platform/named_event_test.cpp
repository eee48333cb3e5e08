// SPDX-License-Identifier: MIT
#include "platform/named_event.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include "tests/support/fault_plan.h"
#include "tests/support/private_events.h"

namespace {

using namespace platform;
using testsupport::FaultPlan;

constexpr char name[] = "QMRK_EVENT_TEST";

class NamedEvent : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { testsupport::usePrivateEvents(); }
};

TEST_F(NamedEvent, StartsUnsetAndReportsItsCreation) {
  setLastError(errorAccessDenied);
  const Handle event = createEvent(name);
  EXPECT_EQ(lastError(), noError);
  EXPECT_NE(event, nullptr);
  EXPECT_EQ(waitForEvent(event, 0), waitTimeout);
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(NamedEvent, CanBeOpenedAgainInTheSameProcess) {
  const Handle first = createEvent(name);
  ASSERT_TRUE(setEvent(first));
  const Handle second = createEvent(name);
  EXPECT_EQ(lastError(), errorAlreadyExists);
  EXPECT_NE(second, first);
  EXPECT_EQ(waitForEvent(second, 0), waitObject);
  EXPECT_TRUE(closeHandle(first));
  EXPECT_TRUE(closeHandle(second));
}

TEST_F(NamedEvent, StaysSetUntilItIsReset) {
  const Handle event = createEvent(name);
  EXPECT_TRUE(setEvent(event));
  EXPECT_EQ(waitForEvent(event, 0), waitObject);
  EXPECT_EQ(waitForEvent(event, waitForever), waitObject);
  EXPECT_TRUE(resetEvent(event));
  EXPECT_EQ(waitForEvent(event, 0), waitTimeout);
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(NamedEvent, AcceptsASecondSetAndReset) {
  const Handle event = createEvent(name);
  EXPECT_TRUE(setEvent(event));
  EXPECT_TRUE(setEvent(event));
  EXPECT_EQ(waitForEvent(event, 0), waitObject);
  EXPECT_TRUE(resetEvent(event));
  EXPECT_TRUE(resetEvent(event));
  EXPECT_EQ(waitForEvent(event, 0), waitTimeout);
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(NamedEvent, DisappearsWithItsLastHandle) {
  const Handle first = createEvent(name);
  const Handle second = createEvent(name);
  ASSERT_TRUE(setEvent(first));
  EXPECT_TRUE(closeHandle(first));
  EXPECT_TRUE(closeHandle(second));
  const Handle third = createEvent(name);
  EXPECT_EQ(lastError(), noError);
  EXPECT_EQ(waitForEvent(third, 0), waitTimeout);
  EXPECT_TRUE(closeHandle(third));
}

TEST_F(NamedEvent, DiffersFromAnEventOfAnotherName) {
  const Handle one = createEvent("QMRK_EVENT_TEST.one");
  const Handle other = createEvent("QMRK_EVENT_TEST.other");
  EXPECT_EQ(lastError(), noError);
  EXPECT_TRUE(setEvent(one));
  EXPECT_EQ(waitForEvent(other, 0), waitTimeout);
  EXPECT_TRUE(closeHandle(one));
  EXPECT_TRUE(closeHandle(other));
}

TEST_F(NamedEvent, CanBeOpenedOnlyWhileSomebodyHoldsIt) {
  EXPECT_EQ(openEvent(name), nullptr);
  EXPECT_EQ(lastError(), errorFileNotFound);
  const Handle held = createEvent(name);
  const Handle opened = openEvent(name);
  EXPECT_EQ(lastError(), noError);
  EXPECT_TRUE(setEvent(opened));
  EXPECT_EQ(waitForEvent(held, 0), waitObject);
  EXPECT_TRUE(closeHandle(held));
  EXPECT_TRUE(closeHandle(opened));
  EXPECT_EQ(openEvent(name), nullptr);
  EXPECT_EQ(lastError(), errorFileNotFound);
}

TEST_F(NamedEvent, WakesAWaiter) {
  const Handle event = createEvent(name);
  std::thread waiter([event] { EXPECT_EQ(waitForEvent(event, waitForever), waitObject); });
  EXPECT_TRUE(setEvent(event));
  waiter.join();
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(NamedEvent, WaitsForTheWholeTimeOut) {
  const Handle event = createEvent(name);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(waitForEvent(event, 200), waitTimeout);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(200));
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(NamedEvent, CanBeClosedOnce) {
  const Handle event = createEvent(name);
  EXPECT_TRUE(closeHandle(event));
  EXPECT_FALSE(closeHandle(event));
  EXPECT_EQ(lastError(), errorInvalidHandle);
}

TEST_F(NamedEvent, RefusesAClosedHandle) {
  const Handle event = createEvent(name);
  ASSERT_TRUE(closeHandle(event));
  EXPECT_FALSE(setEvent(event));
  EXPECT_EQ(lastError(), errorInvalidHandle);
  EXPECT_FALSE(resetEvent(event));
  EXPECT_EQ(lastError(), errorInvalidHandle);
  EXPECT_EQ(waitForEvent(event, 0), waitFailed);
  EXPECT_EQ(lastError(), errorInvalidHandle);
  EXPECT_EQ(duplicateHandle(event), nullptr);
  EXPECT_EQ(lastError(), errorInvalidHandle);
}

TEST_F(NamedEvent, RefusesANullHandle) {
  EXPECT_FALSE(setEvent(nullptr));
  EXPECT_FALSE(resetEvent(nullptr));
  EXPECT_EQ(waitForEvent(nullptr, 0), waitFailed);
  EXPECT_FALSE(closeHandle(nullptr));
  EXPECT_EQ(lastError(), errorInvalidHandle);
}

TEST_F(NamedEvent, OutlivesADuplicatedHandle) {
  const Handle event = createEvent(name);
  const Handle second = duplicateHandle(event);
  EXPECT_EQ(lastError(), noError);
  EXPECT_TRUE(closeHandle(event));
  EXPECT_TRUE(setEvent(second));
  EXPECT_EQ(waitForEvent(second, 0), waitObject);
  EXPECT_TRUE(closeHandle(second));
}

TEST_F(NamedEvent, KeepsAnErrorPerThread) {
  std::atomic<bool> hasFailed{false};
  std::atomic<bool> wasSeen{false};
  ErrorCode ofTheFailing = noError;
  ErrorCode ofTheOther = errorInvalidHandle;
  std::thread failing([&] {
    closeHandle(nullptr);
    hasFailed = true;
    while (!wasSeen) {
    }
    ofTheFailing = lastError();
  });
  std::thread other([&] {
    while (!hasFailed) {
    }
    ofTheOther = lastError();
    wasSeen = true;
  });
  failing.join();
  other.join();
  EXPECT_EQ(ofTheFailing, errorInvalidHandle);
  EXPECT_EQ(ofTheOther, noError);
}

TEST_F(NamedEvent, FailsAsPlanned) {
  {
    const FaultPlan plan(Call::openEvent, 1, errorDiskFull);
    EXPECT_EQ(createEvent(name), nullptr);
    EXPECT_EQ(lastError(), errorDiskFull);
  }
  const Handle event = createEvent(name);
  {
    const FaultPlan plan(Call::setEvent, 1, errorAccessDenied);
    EXPECT_FALSE(setEvent(event));
    EXPECT_EQ(lastError(), errorAccessDenied);
  }
  {
    const FaultPlan plan(Call::waitEvent, 1, errorAccessDenied);
    EXPECT_EQ(waitForEvent(event, 0), waitFailed);
    EXPECT_EQ(lastError(), errorAccessDenied);
  }
  ASSERT_TRUE(setEvent(event));
  {
    const FaultPlan plan(Call::resetEvent, 1, errorAccessDenied);
    EXPECT_FALSE(resetEvent(event));
    EXPECT_EQ(lastError(), errorAccessDenied);
  }
  EXPECT_EQ(waitForEvent(event, 0), waitObject);
  {
    const FaultPlan plan(Call::closeHandle, 1, errorAccessDenied);
    EXPECT_FALSE(closeHandle(event));
    EXPECT_EQ(lastError(), errorAccessDenied);
  }
  EXPECT_TRUE(closeHandle(event));
}

}  // namespace
