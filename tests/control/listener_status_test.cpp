// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "platform/errors.h"
#include "quillmark_logging_names.h"
#include "tests/control/listener_fixture.h"
#include "tests/logsetup/own_status.h"

namespace {

using testsupport::ownStatus;
using testsupport::setEnvironment;
namespace status = Quillmark_logging::status;

class ListenerOnThePage : public testsupport::Listener {
 protected:
  static qmrkctl::ListenerStatus shown() { return ownStatus().listener; }

  // The state may change a moment after what can be seen otherwise.
  static bool becomes(status::ListenerState _state) {
    for (int tries = 0; tries < 3000; ++tries) {
      if (shown().state == _state) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
  }
};

TEST_F(ListenerOnThePage, WaitsForItsEvent) {
  setEnvironment(Quillmark_logging::DEFAULT_CA_NR, "CA12");
  LogEventHandler handler;
  ASSERT_TRUE(waitUntilListening(handler));
  const qmrkctl::ListenerStatus listener = shown();
  EXPECT_EQ(listener.state, status::ListenerState::waiting);
  EXPECT_EQ(listener.threads, 1U);
  EXPECT_EQ(listener.event, "QMRK_LOG_EVENT");
  EXPECT_EQ(listener.ca, "CA12");
  EXPECT_EQ(listener.wakes, 0U);
  EXPECT_EQ(listener.error, 0U);
  EXPECT_TRUE(listener.changedAt);
  stop(handler);
}

TEST_F(ListenerOnThePage, CountsItsWakesAndShowsWhatItApplied) {
  LogEventHandler handler;
  ASSERT_TRUE(waitUntilListening(handler));
  const qmrkctl::ListenerStatus before = shown();
  writeClasses("Listener.two;");
  ASSERT_TRUE(signal());
  while (shown().wakes == 0)
    std::this_thread::yield();
  ASSERT_TRUE(becomes(status::ListenerState::waiting));
  const qmrkctl::ProcessStatus process = ownStatus();
  EXPECT_EQ(process.listener.wakes, 1U);
  EXPECT_EQ(process.classes.text.text, "Listener.two;");
  EXPECT_EQ(process.classes.hash, status::hashOf("Listener.two;"));
  EXPECT_EQ(process.classes.updateResult, status::Result::done);
  stop(handler);
}

TEST_F(ListenerOnThePage, EndsInTheFriendlyWay) {
  LogEventHandler handler;
  ASSERT_TRUE(waitUntilListening(handler));
  stop(handler);
  EXPECT_EQ(shown().state, status::ListenerState::ended);
  EXPECT_EQ(shown().threads, 0U);
}

TEST_F(ListenerOnThePage, EndsWhenItIsTerminated) {
  {
    const LogEventHandler handler;
    ASSERT_TRUE(waitUntilListening(handler));
  }
  EXPECT_TRUE(becomes(status::ListenerState::ended));
  EXPECT_EQ(shown().threads, 0U);
}

TEST_F(ListenerOnThePage, TellsWhyItDidNotStart) {
  const testsupport::FaultPlan plan(platform::Call::openEvent, 1, platform::errorAccessDenied);
  const LogEventHandler handler;
  EXPECT_TRUE(becomes(status::ListenerState::failed));
  EXPECT_EQ(shown().error, platform::errorAccessDenied);
  EXPECT_EQ(shown().failure.text, "cannot create the event QMRK_LOG_EVENT");
  EXPECT_TRUE(shown().failedAt);
}

}  // namespace
