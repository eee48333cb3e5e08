// SPDX-License-Identifier: MIT
#include <atomic>
#include <cstdint>
#include <future>
#include <new>
#include <thread>

#include "boost/logging/logging.hpp"
#include "platform/thread.h"
#include "tests/config/scarce_memory.h"
#include "tests/control/listener_fixture.h"
#include "tests/support/process_resources.h"

namespace {

class ListenerMemory : public testsupport::Listener {};

// The memory runs out in the thread of the listener, at the moment at which it opens the class list, its last file.
TEST_F(ListenerMemory, MayRunOutInAnUpdateWithoutEndingTheListener) {
  const boost::logging::logger one("Listener.one");
  const boost::logging::logger two("Listener.two");
  int readsOfOneUpdate = 0;
  {
    const testsupport::FaultPlan reads(platform::Call::openForReading, 1000, platform::errorAccessDenied);
    ASSERT_TRUE(Quillmark_logging::updateLogLevels());
    readsOfOneUpdate = reads.calls();
  }
  LogEventHandler handler;
  ASSERT_TRUE(waitUntilListening(handler));
  writeClasses("Listener.two;");
  {
    const testsupport::CallHook action(platform::Call::openForReading, readsOfOneUpdate,
                                       [] { testsupport::ScarceMemory::failNext(); });
    ASSERT_TRUE(signal());
    ASSERT_TRUE(cout_.waitFor("resetEvent() returns true"));
  }
  EXPECT_TRUE(one.is_enabled());
  EXPECT_FALSE(two.is_enabled());
  EXPECT_EQ(cerr_.text(), "<!= LogEventHandler::Listen4EventThread() ERROR: std::bad_alloc\n");
  stop(handler);
  EXPECT_TRUE(two.is_enabled());
}

// It could tell nobody that it is lacking. Windows ends a thread wherever it is: before its wait it may hold a lock of
// the process, which nobody would give back.
TEST_F(ListenerMemory, IsNotNeededByTheEndOfAThreadThatLeavesItsEventOpen) {
  std::atomic<bool> hasEvent{false};
  std::uint32_t id = 0;
  const platform::Handle thread = platform::createThread(
      [](void* _hasEvent) {
        const platform::Handle event = platform::createEvent("QMRK_MEMORY_TEST");
        testsupport::ScarceMemory::failNext();
        static_cast<std::atomic<bool>*>(_hasEvent)->store(true);
        return platform::waitForEvent(event, platform::waitForever);
      },
      &hasEvent, id);
  while (!hasEvent)
    std::this_thread::yield();
  ASSERT_TRUE(testsupport::waitUntilThreadSleeps(id));
  ASSERT_TRUE(platform::terminateThread(thread, 1));
  EXPECT_EQ(platform::waitForThread(thread, platform::waitForever), platform::waitObject);
  EXPECT_EQ(testsupport::exitCodeOfThread(thread), 1U);
  EXPECT_TRUE(platform::closeHandle(thread));
}

// What the thread was to use is gone when its creator has failed.
TEST(ThreadMemory, MayRunOutWithoutLeavingAThreadBehind) {
  std::promise<void> end;
  static std::shared_future<void> hasEnded;
  hasEnded = end.get_future();
  const platform::ThreadRoutine waitForTheEnd = [](void*) {
    hasEnded.wait();
    return std::uint32_t{0};
  };
  // With the first thread, the thread sanitizer starts one of its own.
  std::thread([] {}).join();
  const std::size_t before = testsupport::processResources().threads;
  platform::Handle thread = nullptr;
  int failures = 0;
  for (int nth = 1; thread == nullptr && nth < 100; ++nth) {
    std::uint32_t id = 0;
    try {
      const testsupport::ScarceMemory memory(nth);
      thread = platform::createThread(waitForTheEnd, nullptr, id);
    } catch (const std::bad_alloc&) {
      ++failures;
    }
    EXPECT_EQ(testsupport::processResources().threads, before + (thread != nullptr ? 1 : 0)) << nth;
  }
  RecordProperty("failures", failures);
  end.set_value();
  ASSERT_NE(thread, nullptr);
  EXPECT_EQ(platform::waitForThread(thread, platform::waitForever), platform::waitObject);
  EXPECT_TRUE(platform::closeHandle(thread));
}

}  // namespace
