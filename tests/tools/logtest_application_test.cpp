// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/named_event.h"
#include "tests/support/child_process.h"
#include "tests/support/companion_process.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/matches_pattern.h"
#include "tests/support/private_events.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;
using testsupport::ChildResult;
using testsupport::MatchesPattern;
using testsupport::readFile;

class LogTestApplication : public testing::Test {
 protected:
  static void SetUpTestSuite() { testsupport::usePrivateEvents(); }

  LogTestApplication() {
    sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=A;B;\n");
    sandbox_.writeInit("CA12", "A;");
  }

  static ChildResult run(const std::vector<std::string>& _arguments) {
    return testsupport::runProgram(LOG_TEST, _arguments);
  }

  std::string appLog() const { return sandbox_.logFolder() + "\\Application logs\\Own_log.txt"; }

  testsupport::ConfigSandbox sandbox_;
};

TEST_F(LogTestApplication, LogsEnabledClassesToTheCommonLogAndListsThem) {
  const ChildResult result = run({"--ca", "CA12", "--classes", "A;B;", "--lines", "2"});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_THAT(result.output, HasSubstr("A  on, lines logged: 2\n"));
  EXPECT_THAT(result.output, HasSubstr("B  off\n"));
  const std::string log = readFile(sandbox_.logFolder() + "\\common.log");
  EXPECT_THAT(log, HasSubstr(" line 1 of 2"));
  EXPECT_THAT(log, HasSubstr(" line 2 of 2"));
}

TEST_F(LogTestApplication, LogsToTheFileOfAnApplication) {
  EXPECT_EQ(run({"--ca", "CA12", "--classes", "A;B;", "--lines", "1", "--app", "Own"}).exitCode, 0);
  EXPECT_EQ(run({"--ca", "CA12", "--classes", "A;B;", "--lines", "2", "--app", "Own"}).exitCode, 0);
  EXPECT_THAT(readFile(appLog()), HasSubstr("line 1 of 1"));
  EXPECT_THAT(readFile(appLog()), HasSubstr("line 1 of 2"));
  EXPECT_EQ(run({"--ca", "CA12", "--classes", "A;B;", "--lines", "3", "--app", "Own", "--overwrite"}).exitCode, 0);
  EXPECT_THAT(readFile(appLog()), Not(HasSubstr("line 1 of 1")));
  EXPECT_THAT(readFile(appLog()), HasSubstr("line 1 of 3"));
}

TEST_F(LogTestApplication, PutsProcessThreadAndLocationInFrontOfALine) {
  EXPECT_EQ(run({"--ca", "CA12", "--classes", "A;", "--lines", "1", "--app", "Own", "--stamps"}).exitCode, 0);
  EXPECT_THAT(readFile(appLog()), MatchesPattern(".*\\[[0-9]+\\] \\[[0-9]+\\] \\[logLine tools.logtest.class_log\\.cpp:"
                                                 "[0-9]+\\] line 1 of 1\r?\n"));
}

TEST_F(LogTestApplication, PrintsTheVersionsWithoutASetUp) {
  const ChildResult result = run({"--version"});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_EQ(result.output,
            "\nVersion info:\n"
            "=============\n"
            "qmrk_log.dll        " QMRK_VERSION
            "\n"
            "LogTest.exe         " QMRK_VERSION
            "\n"
            "\n"
            "Library " QMRK_VERSION ", LogTest " QMRK_VERSION "\n");
  EXPECT_FALSE(testsupport::exists(sandbox_.logFolder()));
}

TEST_F(LogTestApplication, ShowsAChangeOfTheClassesWhileItListens) {
  testsupport::CompanionProcess logTest({LOG_TEST, "--ca", "CA12", "--classes", "A;B;", "--listen", "1000"});
  EXPECT_THAT(logTest.readLine(), HasSubstr(" A is on"));
  EXPECT_THAT(logTest.readLine(), HasSubstr(" B is off"));
  // The listener asks for the default CA.
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  sandbox_.writeInit("CA12", "B;");
  const platform::Handle event = platform::createEvent("QMRK_LOG_EVENT");
  platform::setEvent(event);
  EXPECT_THAT(logTest.readLine(), HasSubstr(" A is off"));
  EXPECT_THAT(logTest.readLine(), HasSubstr(" B is on"));
  logTest.kill();
  platform::closeHandle(event);
  EXPECT_THAT(readFile(sandbox_.logFolder() + "\\common.log"), HasSubstr("[A] "));
}

TEST_F(LogTestApplication, EndsAfterTheTimeOfListening) {
  const ChildResult result = run({"--ca", "CA12", "--classes", "A;", "--listen", "0.15"});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_THAT(result.output, HasSubstr("A  on, lines logged: 2\n"));
}

TEST_F(LogTestApplication, EndsWithOneAndTheReasonWhenASetUpFails) {
  sandbox_.writeCfg("CA12", "COMMON_LOG_FILE_NAME=common.log\n");
  ChildResult result = run({"--ca", "CA12"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.errors, HasSubstr("LOG_STATE is missing"));
  sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\n");
  result = run({"--ca", "CA12", "--app", ""});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.errors, HasSubstr("its name is empty"));
  result = run({"--ca", "CA12", "--app", "Own"});
  EXPECT_EQ(result.exitCode, 0);
}

TEST_F(LogTestApplication, ReportsAnUnwritableApplicationLog) {
  testsupport::makeFolders(appLog());
  const ChildResult result = run({"--ca", "CA12", "--app", "Own"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.output, HasSubstr("Own_log.txt (lines are lost: it cannot be written)"));
}

TEST_F(LogTestApplication, EndsWithTwoOnAWrongCommandLine) {
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{"--unknown"},
                                             {"--lines", "many"},
                                             {"--overwrite"},
                                             {"--listen", "1", "--lines", "1"},
                                             {"--listen", "-1"},
                                             {"--listen", "nan"},
                                             {"--app"}}) {
    const ChildResult result = run(arguments);
    EXPECT_EQ(result.exitCode, 2) << arguments[0];
    EXPECT_THAT(result.errors, StartsWith("LogTest: "));
  }
}

}  // namespace
