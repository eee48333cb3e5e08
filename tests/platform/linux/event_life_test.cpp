// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <unistd.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/linux/event_folder.h"
#include "platform/named_event.h"
#include "platform/thread.h"
#include "tests/support/companion_process.h"
#include "tests/support/fault_plan.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/private_events.h"
#include "tests/support/process_resources.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace platform;
using testsupport::CompanionProcess;
using testsupport::SleepingChild;

constexpr char livingEvent[] = "QMRK_EVENT_TEST";

class EventLife : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { testsupport::usePrivateEvents(); }

  static bool createsAnew() {
    const Handle event = createEvent(livingEvent);
    const bool isNew = event != nullptr && lastError() == noError && waitForEvent(event, 0) == waitTimeout;
    closeHandle(event);
    return isNew;
  }

  /// Leaves a child that sleeps when it has run the function, and outlives this process.
  static void leaveChild(const std::function<void()>& _function) {
    static std::unique_ptr<SleepingChild> child;
    child = std::make_unique<SleepingChild>([&_function] {
      // Ends by itself when the test is over, for whose end those who read its output do not wait.
      ::close(STDOUT_FILENO);
      ::close(STDERR_FILENO);
      ::alarm(20);
      _function();
    });
  }
};

TEST_F(EventLife, EndsDespiteAForkedChild) {
  const Handle event = createEvent(livingEvent);
  ASSERT_TRUE(setEvent(event));
  const SleepingChild child([] {});
  EXPECT_TRUE(closeHandle(event));
  EXPECT_TRUE(createsAnew());
}

TEST_F(EventLife, EndsDespiteAChildWhoseParentIsKilled) {
  SleepingChild parent([] {
    setEvent(createEvent(livingEvent));
    leaveChild([] {});
  });
  const Handle event = openEvent(livingEvent);
  ASSERT_EQ(waitForEvent(event, 0), waitObject);
  ASSERT_TRUE(closeHandle(event));
  parent.kill();
  EXPECT_TRUE(createsAnew());
}

TEST_F(EventLife, GoesOnWhenAForkedChildEnds) {
  const Handle event = createEvent(livingEvent);
  ASSERT_TRUE(setEvent(event));
  EXPECT_EQ(testsupport::inForkedChild([] { return 0; }), 0);
  const Handle second = createEvent(livingEvent);
  EXPECT_EQ(lastError(), errorAlreadyExists);
  EXPECT_EQ(waitForEvent(second, 0), waitObject);
  EXPECT_TRUE(closeHandle(second));
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(EventLife, ExcludesAForkedChildUntilItOpensTheEvent) {
  const Handle event = createEvent(livingEvent);
  EXPECT_EQ(testsupport::inForkedChild([event] {
              if (setEvent(event) || lastError() != errorInvalidHandle) return 1;
              if (waitForEvent(event, 0) != waitFailed || closeHandle(event)) return 2;
              const Handle own = openEvent(livingEvent);
              return own != nullptr && own != event && setEvent(own) && closeHandle(own) ? 0 : 3;
            }),
            0);
  EXPECT_EQ(waitForEvent(event, 0), waitObject);
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(EventLife, LastsAsLongAsTheProcessAfterAThreadIsTerminated) {
  static constexpr char keptEvent[] = "QMRK_KEPT_EVENT_TEST";
  std::uint32_t id = 0;
  const auto before = testsupport::processResources();
  for (int round = 0; round < 200; ++round) {
    const Handle thread = createThread(
        [](void*) {
          const Handle event = createEvent(keptEvent);
          return waitForEvent(event, waitForever);
        },
        nullptr, id);
    ASSERT_TRUE(terminateThread(thread, 1));
    ASSERT_TRUE(closeHandle(thread));
  }
  auto after = testsupport::processResources();
  EXPECT_EQ(after.files, before.files + 1);
  EXPECT_EQ(after.eventMappings, before.eventMappings + 1);
  EXPECT_EQ(after.handles, before.handles);
  CompanionProcess other({QMRK_EVENT_ACTOR});
  EXPECT_EQ(other.ask(std::string("create ") + keptEvent), "existing");
}

// The copy in the child is of no use: the child keeps a reference of its own once a thread of its own has left one.
TEST_F(EventLife, LastsAsLongAsAForkedChildThatTerminatesAThreadToo) {
  const auto terminateOne = [] {
    std::uint32_t id = 0;
    const Handle thread =
        createThread([](void*) { return waitForEvent(createEvent(livingEvent), waitForever); }, nullptr, id);
    terminateThread(thread, 1);
    closeHandle(thread);
  };
  SleepingChild parent([&terminateOne] {
    terminateOne();
    leaveChild(terminateOne);
  });
  parent.kill();
  EXPECT_FALSE(createsAnew());
}

TEST_F(EventLife, EndsWithTheHandlesOfAForkedGrandchild) {
  const Handle event = createEvent(livingEvent);
  std::uint32_t id = 0;
  const Handle thread =
      createThread([](void*) { return waitForEvent(createEvent(livingEvent), waitForever); }, nullptr, id);
  EXPECT_EQ(testsupport::inForkedChild([event, thread] {
              return testsupport::inForkedChild([event, thread] {
                if (waitForThread(thread, 0) != waitFailed || closeHandle(thread)) return 1;
                return setEvent(event) || closeHandle(event) ? 2 : 0;
              });
            }),
            0);
  EXPECT_TRUE(terminateThread(thread, 1));
  EXPECT_TRUE(closeHandle(thread));
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(EventLife, BeginsDespiteTheRemovalOfItsFolder) {
  const testsupport::CallHook logOut(Call::openEventFile, 1, [] { testsupport::removeAll(eventFolderPath()); });
  const Handle event = createEvent(livingEvent);
  EXPECT_EQ(lastError(), noError);
  CompanionProcess other({QMRK_EVENT_ACTOR});
  EXPECT_EQ(other.ask(std::string("create ") + livingEvent), "existing");
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(EventLife, CannotBeFoundInAFolderRemovedMeanwhile) {
  const Handle event = createEvent(livingEvent);
  const testsupport::CallHook logOut(Call::openEventFile, 1, [] { testsupport::removeAll(eventFolderPath()); });
  EXPECT_EQ(openEvent(livingEvent), nullptr);
  EXPECT_EQ(lastError(), errorFileNotFound);
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(EventLife, TakesOneFileAndOneMappingWhileAHandleIsOpen) {
  ASSERT_TRUE(createsAnew());
  const auto before = testsupport::processResources();
  for (int round = 0; round < 1000; ++round) {
    const Handle event = createEvent(livingEvent);
    const Handle second = duplicateHandle(event);
    const auto open = testsupport::processResources();
    ASSERT_EQ(open.files, before.files + 1);
    ASSERT_EQ(open.eventMappings, before.eventMappings + 1);
    ASSERT_EQ(open.handles, before.handles + 2);
    ASSERT_TRUE(closeHandle(event));
    ASSERT_TRUE(closeHandle(second));
  }
  EXPECT_EQ(testsupport::processResources(), before);
}

TEST_F(EventLife, GoesOnWhenALogOutRemovesItsFile) {
  const Handle event = createEvent(livingEvent);
  testsupport::removeAll(eventFolderPath());
  CompanionProcess other({QMRK_EVENT_ACTOR});
  ASSERT_EQ(other.ask(std::string("create ") + livingEvent), "created");
  EXPECT_TRUE(setEvent(event));
  EXPECT_EQ(other.ask("wait 10000"), "0");
  EXPECT_EQ(other.ask("reset"), "true");
  EXPECT_EQ(waitForEvent(event, 0), waitTimeout);
  EXPECT_TRUE(closeHandle(event));
  EXPECT_EQ(other.ask("set"), "true");
  EXPECT_EQ(other.ask("wait 0"), "0");
}

// Takes the two seconds after which a waiter looks whether its file is still in place.
TEST_F(EventLife, LetsAWaiterFindTheEventRecreatedAfterALogOut) {
  CompanionProcess waiter({QMRK_EVENT_ACTOR});
  ASSERT_EQ(waiter.ask(std::string("create ") + livingEvent), "created");
  waiter.send("wait 120000");
  ASSERT_TRUE(waiter.waitUntilAsleep());
  testsupport::removeAll(eventFolderPath());
  const Handle event = createEvent(livingEvent);
  EXPECT_EQ(lastError(), noError);
  EXPECT_TRUE(setEvent(event));
  EXPECT_EQ(waiter.readLine(25'000), "0");
  EXPECT_TRUE(closeHandle(event));
}

}  // namespace
