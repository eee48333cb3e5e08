// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/named_event.h"
#include "tests/support/child_process.h"
#include "tests/support/private_events.h"

namespace {

using namespace platform;
using testsupport::ChildResult;

class QmrkctlSignal : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    testsupport::usePrivateProcesses();
    testsupport::usePrivateEvents();
  }

  static ChildResult qmrkctl(const std::vector<std::string>& _arguments) {
    return testsupport::runProgram(QMRKCTL, _arguments);
  }

  static bool contains(const std::string& _text, const std::string& _part) {
    return _text.find(_part) != std::string::npos;
  }
};

TEST_F(QmrkctlSignal, SetsTheEventOfTheListenersAndSaysSo) {
  const Handle event = createEvent("QMRK_LOG_EVENT");
  const ChildResult result = qmrkctl({"signal"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(contains(result.output, ": reached")) << result.output;
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(waitForEvent(event, 0), waitObject);
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(QmrkctlSignal, SetsAnEventOfAnotherName) {
  const Handle event = createEvent("QMRK_LOG_EVENT");
  const Handle other = createEvent("QMRK_OTHER_EVENT");
  EXPECT_EQ(qmrkctl({"signal", "--event", "QMRK_OTHER_EVENT"}).exitCode, 0);
  EXPECT_EQ(waitForEvent(other, 0), waitObject);
  EXPECT_EQ(waitForEvent(event, 0), waitTimeout);
  EXPECT_TRUE(closeHandle(other));
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(QmrkctlSignal, SaysThatNobodyListensAndCreatesNothing) {
  const ChildResult result = qmrkctl({"signal"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(contains(result.output, "nobody listens")) << result.output;
  const Handle event = createEvent("QMRK_LOG_EVENT");
  EXPECT_EQ(lastError(), noError);
  EXPECT_EQ(waitForEvent(event, 0), waitTimeout);
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(QmrkctlSignal, EndsWithTwoOnAWrongCommandLine) {
  const std::vector<std::vector<std::string>> wrong = {{},
                                                       {"unknown"},
                                                       {"signal", "surplus"},
                                                       {"signal", "--event"},
                                                       {"signal", "--unknown"},
                                                       {"--event", "X"},
                                                       {"--ca", "", "check"},
                                                       {"--user", "", "apps"},
                                                       {"--app", "", "apps"}};
  for (const auto& arguments : wrong) {
    const ChildResult result = qmrkctl(arguments);
    EXPECT_EQ(result.exitCode, 2) << ::testing::PrintToString(arguments);
    EXPECT_NE(result.errors, "") << ::testing::PrintToString(arguments);
  }
}

TEST_F(QmrkctlSignal, EndsWithZeroWhenAskedForHelp) {
  for (const auto& arguments : {std::vector<std::string>{"--help"}, std::vector<std::string>{"signal", "--help"}}) {
    const ChildResult result = qmrkctl(arguments);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(contains(result.output, "Usage")) << result.output;
  }
}

}  // namespace
