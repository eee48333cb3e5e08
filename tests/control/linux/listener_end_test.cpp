// SPDX-License-Identifier: MIT
#include <pthread.h>
#include <unistd.h>

#include <future>
#include <thread>

#include "boost/logging/logging.hpp"
#include "platform/process.h"
#include "tests/control/listener_fixture.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/linux/shared_memory_mount.h"
#include "tests/support/process_resources.h"

namespace {

using namespace platform;
using testsupport::exitCodeOfThread;

class ListenerEnd : public testsupport::Listener {};

// An update that stands still, once begun, until the test lets it go on.
class HeldUpdate {
 public:
  void letGo() { mayGoOn_.set_value(); }

 private:
  std::promise<void> mayGoOn_;
  const testsupport::CallHook hook_{platform::Call::openForReading, 1, [this] { mayGoOn_.get_future().wait(); }};
};

TEST_F(ListenerEnd, WaitsForAnUpdateThatIsUnderWay) {
  const boost::logging::logger late("Listener.late");
  ASSERT_TRUE(Quillmark_logging::updateLogLevels());
  ASSERT_FALSE(late.is_enabled());
  auto handler = std::make_unique<LogEventHandler>();
  ASSERT_TRUE(waitUntilListening(*handler));
  const Handle thread = duplicateHandle(handler->getThreadHandle());
  const Handle event = openEvent("QMRK_LOG_EVENT");
  writeClasses("Listener.late;");
  HeldUpdate update;
  ASSERT_TRUE(setEvent(event));
  ASSERT_TRUE(cout_.waitFor("WAIT_OBJECT_0 (0)"));
  std::thread end([&handler] { handler.reset(); });
  EXPECT_EQ(waitForThread(thread, 1500), waitTimeout);
  EXPECT_FALSE(late.is_enabled());
  update.letGo();
  end.join();
  EXPECT_TRUE(late.is_enabled());
  EXPECT_EQ(waitForThread(thread, 0), waitObject);
  EXPECT_EQ(exitCodeOfThread(thread), 1U);
  EXPECT_EQ(waitForEvent(event, 0), waitTimeout);
  EXPECT_EQ(cout_.count("<== LogEventHandler::resetEvent() returns true\n"), 1);
  EXPECT_TRUE(closeHandle(event));
  EXPECT_TRUE(closeHandle(thread));
}

TEST_F(ListenerEnd, LosesASettingDuringTheUpdateToTheResetAfterIt) {
  ASSERT_TRUE(Quillmark_logging::updateLogLevels());
  LogEventHandler handler;
  ASSERT_TRUE(waitUntilListening(handler));
  HeldUpdate update;
  ASSERT_TRUE(signal());
  ASSERT_TRUE(cout_.waitFor("WAIT_OBJECT_0 (0)"));
  ASSERT_TRUE(signal());
  update.letGo();
  ASSERT_TRUE(cout_.waitFor("resetEvent() returns true"));
  EXPECT_EQ(waitForThread(handler.getThreadHandle(), 100), waitTimeout);
  EXPECT_EQ(cout_.count("WAIT_OBJECT_0 (0)"), 1);
  stop(handler);
}

// It waits for the thread of the listener, and a wait is a cancellation point, here in a destructor.
TEST_F(ListenerEnd, CompletesInAThreadThatIsCancelled) {
  const int result = testsupport::inForkedChild([] {
    bool hasEnded = false;
    std::thread ending([&hasEnded] {
      auto handler = std::make_unique<LogEventHandler>();
      ::pthread_cancel(::pthread_self());
      handler.reset();
      hasEnded = true;
      ::pthread_testcancel();
      hasEnded = false;
    });
    ending.join();
    return hasEnded ? 0 : 1;
  });
  EXPECT_EQ(result, 0);
}

// It waits for its thread to run, too, which must not outlive an object that is unwound.
TEST_F(ListenerEnd, ComesToAThreadThatIsStartedByOneThatIsCancelled) {
  const int result = testsupport::inForkedChild([] {
    bool isConstructed = false;
    std::promise<std::uint32_t> id;
    const testsupport::CallHook duringTheWait(platform::Call::beginThread, 1,
                                              [&id] { testsupport::waitUntilThreadSleeps(id.get_future().get()); });
    std::thread starting([&isConstructed, &id] {
      id.set_value(threadId());
      ::pthread_cancel(::pthread_self());
      const auto handler = std::make_unique<LogEventHandler>();
      isConstructed = handler->isCreated() != 0;
      ::pthread_testcancel();
    });
    starting.join();
    if (!isConstructed) return 1;
    return testsupport::processResources().handles == 0 ? 0 : 2;
  });
  EXPECT_EQ(result, 0);
}

// As a daemon does that forks twice and ends with the listener of its grandparent.
TEST_F(ListenerEnd, ComesAtOnceInAForkedGrandchild) {
  auto handler = std::make_unique<LogEventHandler>();
  ASSERT_TRUE(waitUntilListening(*handler));
  const auto end = [&handler] {
    // Ends the process when it hangs.
    ::alarm(30);
    handler.reset();
    return 0;
  };
  EXPECT_EQ(testsupport::inForkedChild([&end] { return testsupport::inForkedChild(end) == 0 ? 0 : 1; }), 0);
  stop(*handler);
}

TEST_F(ListenerEnd, ComesAtOnceWhenSharedMemoryIsFull) {
  testsupport::mountSharedMemory("nr_inodes=1");
  {
    LogEventHandler handler;
    EXPECT_EQ(waitForThread(handler.getThreadHandle(), 30'000), waitObject);
    EXPECT_EQ(exitCodeOfThread(handler.getThreadHandle()), 0xFFFFFFFF);
    EXPECT_EQ(handler.isCreated(), 1);
  }
  testsupport::unmountSharedMemory();
  EXPECT_EQ(cerr_.text(),
            "<!= LogEventHandler::createEvent() ERROR: Failed to create event \"QMRK_LOG_EVENT\", GetLastError=112\n"
            "<!= LogEventHandler::Listen4EventThread() ERROR: Failed to create event \"QMRK_LOG_EVENT\", "
            "GetLastError=112\n");
}

}  // namespace
