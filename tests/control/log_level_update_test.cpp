// SPDX-License-Identifier: MIT
#include <thread>
#include <vector>

#include "boost/logging/logging.hpp"
#include "tests/control/listener_fixture.h"
#include "tests/support/companion_process.h"
#include "tests/support/process_resources.h"

namespace {

using namespace platform;
using testsupport::CompanionProcess;

constexpr char eventName[] = "QMRK_LOG_EVENT";

class LogLevelUpdate : public testsupport::Listener {
 protected:
  boost::logging::logger one_{"Listener.one"};
  boost::logging::logger two_{"Listener.two"};
};

TEST_F(LogLevelUpdate, HappensOncePerSettingByAnotherProcessAndResetsTheEvent) {
  ASSERT_TRUE(Quillmark_logging::updateLogLevels());
  ASSERT_TRUE(one_.is_enabled());
  ASSERT_FALSE(two_.is_enabled());
  LogEventHandler handler;
  ASSERT_TRUE(waitUntilListening(handler));
  CompanionProcess other({QMRK_EVENT_ACTOR});
  ASSERT_EQ(other.ask(std::string("open ") + eventName), "created");
  const testsupport::FaultPlan reads(Call::openForReading, 1000, errorAccessDenied);
  ASSERT_TRUE(Quillmark_logging::updateLogLevels());
  const int readsOfOneUpdate = reads.calls();
  writeClasses("Listener.two;");
  ASSERT_EQ(other.ask("set"), "true");
  ASSERT_TRUE(cout_.waitFor("resetEvent() returns true"));
  EXPECT_FALSE(one_.is_enabled());
  EXPECT_TRUE(two_.is_enabled());
  EXPECT_EQ(other.ask("wait 0"), "258");
  EXPECT_EQ(waitForThread(handler.getThreadHandle(), 100), waitTimeout);
  EXPECT_EQ(reads.calls(), 2 * readsOfOneUpdate);
  EXPECT_EQ(cout_.count("WAIT_OBJECT_0 (0)"), 1);
  stop(handler);
}

TEST_F(LogLevelUpdate, DoesNotHappenWhenAWaitEndsOtherwise) {
  for (const std::uint32_t result : {waitTimeout, waitAbandoned, waitFailed}) {
    const testsupport::FaultPlan reads(Call::openForReading, 1000, errorAccessDenied);
    const testsupport::FaultPlan wait(Call::waitEvent, 1, result);
    LogEventHandler handler;
    ASSERT_TRUE(cout_.waitFor("(" + std::to_string(result) + ")"));
    ASSERT_TRUE(testsupport::waitUntilThreadSleeps(handler.getThreadId()));
    EXPECT_EQ(reads.calls(), 0) << result;
    EXPECT_EQ(cout_.count("LogEventHandler::resetEvent()"), 0) << result;
  }
}

TEST_F(LogLevelUpdate, HappensAtEverySetting) {
  LogEventHandler handler;
  ASSERT_TRUE(waitUntilListening(handler));
  for (int round = 1; round <= 20; ++round) {
    const bool isTwo = round % 2 == 0;
    writeClasses(isTwo ? "Listener.two;" : "Listener.one;");
    ASSERT_TRUE(signal());
    ASSERT_TRUE(cout_.waitFor("resetEvent() returns true", round));
    ASSERT_EQ(one_.is_enabled(), !isTwo);
    ASSERT_EQ(two_.is_enabled(), isTwo);
  }
  stop(handler);
}

TEST_F(LogLevelUpdate, LeavesTheListenerListeningWhenItFails) {
  ASSERT_TRUE(Quillmark_logging::updateLogLevels());
  LogEventHandler handler;
  ASSERT_TRUE(waitUntilListening(handler));
  testsupport::removeAll(classesPath());
  ASSERT_TRUE(signal());
  ASSERT_TRUE(cout_.waitFor("resetEvent() returns true"));
  EXPECT_TRUE(one_.is_enabled());
  writeClasses("Listener.two;");
  stop(handler);
  EXPECT_TRUE(two_.is_enabled());
}

TEST_F(LogLevelUpdate, ReachesEveryListeningProcess) {
  CompanionProcess first({QMRK_LISTENER_ACTOR});
  std::string line;
  while (line.find("eventHandle=") == std::string::npos) {
    line = first.readLine();
    ASSERT_EQ(line.find('<' + std::string("nothing>")), std::string::npos);
  }
  EXPECT_NE(line.find("successfully created..."), std::string::npos) << line;
  LogEventHandler second;
  ASSERT_TRUE(waitUntilListening(second));
  EXPECT_EQ(cout_.count("did already exist, opening existing event..."), 1);
  ASSERT_TRUE(first.waitUntilAsleep());
  ASSERT_TRUE(signal());
  ASSERT_TRUE(cout_.waitFor("resetEvent() returns true"));
  while (line.find("resetEvent() returns true") == std::string::npos) {
    line = first.readLine();
    ASSERT_EQ(line.find('<' + std::string("nothing>")), std::string::npos);
  }
  stop(second);
  EXPECT_EQ(first.finish(), 0);
}

// Each of them ends on a thread of its own, since each takes the time-out.
TEST_F(LogLevelUpdate, LeavesNothingBehindAfterTwoHundredListeners) {
  const auto round = [this](int _number, int _expected) {
    std::vector<std::unique_ptr<LogEventHandler>> handlers;
    for (int handler = 0; handler < _number; ++handler) {
      handlers.push_back(std::make_unique<LogEventHandler>());
    }
    ASSERT_TRUE(cout_.waitFor("eventHandle=", _expected));
    // On Windows, a thread that is terminated before may leave a lock of the system taken for ever.
    for (const auto& handler : handlers)
      ASSERT_TRUE(testsupport::waitUntilThreadSleeps(handler->getThreadId()));
    std::vector<std::thread> ends;
    ends.reserve(handlers.size());
    for (auto& handler : handlers) {
      ends.emplace_back([&handler] { handler.reset(); });
    }
    for (std::thread& end : ends) {
      end.join();
    }
  };
  round(1, 1);
  const auto before = testsupport::processResources();
  for (int listeners = 0; listeners < 200; listeners += 25) {
    round(25, 1 + listeners + 25);
  }
  // A thread that was joined may stand in the system's list for a moment longer.
  for (int i = 0; i < 3000 && !(testsupport::processResources() == before); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  EXPECT_EQ(testsupport::processResources(), before);
  // Lines of several threads may interleave at their insertions: the results are counted apart from what precedes them.
  EXPECT_EQ(cout_.count("<== LogEventHandler::closeHandle() returns "), 201);
  EXPECT_EQ(cout_.count("false"), 0);
}

}  // namespace
