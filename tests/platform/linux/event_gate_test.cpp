// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "platform/linux/event_folder.h"
#include "platform/linux/file_descriptor.h"
#include "platform/linux/record_lock.h"
#include "platform/named_event.h"
#include "tests/support/companion_process.h"
#include "tests/support/fault_plan.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/private_events.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace platform;
using testsupport::CompanionProcess;

constexpr char gatedEvent[] = "QMRK_GATE_TEST";
constexpr long usersByte = 0;
constexpr long gateByte = 1;
constexpr std::chrono::milliseconds longestGateWait{100};

// What another process holds that was stopped while it creates, joins or leaves the event.
class StoppedProcess {
 public:
  enum class Holds { gate, gateAndEvent };

  explicit StoppedProcess(Holds _what) {
    ::mkdir(eventFolderPath().c_str(), 0700);
    file_ = FileDescriptor(::open((eventFolderPath() + "/" + gatedEvent).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    EXPECT_TRUE(tryRecordLock(file_.get(), gateByte, RecordLock::exclusive));
    const RecordLock event = _what == Holds::gate ? RecordLock::none : RecordLock::exclusive;
    EXPECT_TRUE(tryRecordLock(file_.get(), usersByte, event));
  }

 private:
  FileDescriptor file_;
};

class EventGate : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { testsupport::usePrivateEvents(); }

  CompanionProcess first_{{QMRK_EVENT_ACTOR}};
  CompanionProcess second_{{QMRK_EVENT_ACTOR}};
  const std::string create_ = std::string("create ") + gatedEvent;
};

TEST_F(EventGate, LetsAnEventBeCreatedAndSharedWhenBlockedBefore) {
  const StoppedProcess stopped(StoppedProcess::Holds::gate);
  ASSERT_EQ(first_.ask(create_), "created");
  ASSERT_EQ(second_.ask(create_), "existing");
  EXPECT_EQ(second_.ask("set"), "true");
  EXPECT_EQ(first_.ask("wait 0"), "0");
}

TEST_F(EventGate, LetsAnEventBeCreatedElsewhereWhenBlockedDuringCreation) {
  const StoppedProcess stopped(StoppedProcess::Holds::gateAndEvent);
  ASSERT_EQ(first_.ask(create_), "created");
  ASSERT_EQ(second_.ask(create_), "existing");
  EXPECT_EQ(second_.ask("set"), "true");
  EXPECT_EQ(first_.ask("wait 0"), "0");
}

// This process has waited for the gate, too, and finds the event in the way that the first one has begun meanwhile.
TEST_F(EventGate, LeavesAloneWhatIsCreatedElsewhereMeanwhile) {
  const StoppedProcess stopped(StoppedProcess::Holds::gateAndEvent);
  std::optional<testsupport::CallHook> besideTheGate;
  const testsupport::CallHook atTheGate(Call::awaitEventGate, 1, [this, &besideTheGate] {
    std::this_thread::sleep_for(longestGateWait);
    // In place of this hook, which has done its work.
    besideTheGate.emplace(Call::awaitEventGate, 1, [this] { EXPECT_EQ(first_.ask(create_), "created"); });
  });
  const Handle event = createEvent(gatedEvent);
  EXPECT_EQ(lastError(), errorAlreadyExists);
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(EventGate, AdmitsFurtherUsersWhenBlockedDuringUse) {
  ASSERT_EQ(first_.ask(create_), "created");
  const StoppedProcess stopped(StoppedProcess::Holds::gate);
  ASSERT_EQ(second_.ask(create_), "existing");
  EXPECT_EQ(second_.ask("set"), "true");
  EXPECT_EQ(second_.ask("close"), "true");
  EXPECT_EQ(first_.ask("wait 0"), "0");
  EXPECT_EQ(first_.ask("close"), "true");
  // Nobody could remove its file, but nobody uses it.
  EXPECT_EQ(first_.ask(std::string("open ") + gatedEvent), "failed 2");
  EXPECT_EQ(first_.ask(create_), "created");
  EXPECT_EQ(first_.ask("wait 0"), "258");
}

// A join that held a lock of the process while it waits would never come to the end of its own pause.
TEST_F(EventGate, HoldsUpNeitherOtherEventsNorAFork) {
  const int result = testsupport::inForkedChild([] {
    // Ends the child when it hangs.
    ::alarm(30);
    const StoppedProcess stopped(StoppedProcess::Holds::gate);
    Handle other = nullptr;
    int forked = -1;
    const testsupport::CallHook duringThePause(Call::awaitEventGate, 1, [&other, &forked] {
      other = createEvent("QMRK_GATE_TEST.other");
      forked = testsupport::inForkedChild([] { return createEvent("QMRK_GATE_TEST.child") != nullptr ? 7 : 1; });
    });
    const Handle event = createEvent(gatedEvent);
    return event != nullptr && other != nullptr && forked == 7 ? 0 : 1;
  });
  EXPECT_EQ(result, 0);
}

// To leave the event takes a pause, which is a cancellation point, in a destructor.
TEST_F(EventGate, LetsNobodyBeCancelledWhoLeaves) {
  const int result = testsupport::inForkedChild([] {
    const Handle event = createEvent(gatedEvent);
    const StoppedProcess stopped(StoppedProcess::Holds::gate);
    bool isClosed = false;
    std::thread leaving([event, &isClosed] {
      ::pthread_cancel(::pthread_self());
      isClosed = closeHandle(event);
    });
    leaving.join();
    return isClosed ? 0 : 1;
  });
  EXPECT_EQ(result, 0);
}

TEST_F(EventGate, ServesWaitersInTurnWhenItOpensInTime) {
  auto stopped = std::make_unique<StoppedProcess>(StoppedProcess::Holds::gate);
  const testsupport::CallHook goesOn(Call::awaitEventGate, 1, [&stopped] { stopped.reset(); });
  const Handle event = createEvent(gatedEvent);
  EXPECT_EQ(lastError(), noError);
  EXPECT_EQ(stopped, nullptr);
  EXPECT_TRUE(closeHandle(event));
  EXPECT_FALSE(testsupport::exists(eventFolderPath() + "/" + gatedEvent));
}

}  // namespace
