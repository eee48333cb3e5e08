// SPDX-License-Identifier: MIT
#include "boost/logging/logging.hpp"
#include "tests/config/scarce_memory.h"
#include "tests/control/listener_fixture.h"

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

}  // namespace
