// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "tests/support/child_process.h"
#include "tests/support/config_sandbox.h"

namespace {

// Both ways of writing the common log, with and without threads of the log manager.
class Unloading : public ::testing::TestWithParam<const char*> {};

TEST_P(Unloading, DeliversEverythingAndNeverHangsInAHundredRounds) {
  constexpr int rounds = 100;
  const testsupport::ConfigSandbox sandbox;
  sandbox.writeCfg("GE", std::string("REDIRECT_CA_NR=CA12\n"));
  sandbox.writeCfg("CA12", std::string("LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\n"
                                       "COMMON_LOG_FILE_FILTER=Plugin;\nTS_APPENDERS=") +
                               GetParam() + "\n");
  sandbox.writeInit("CA12", "Plugin;");
  // The loader of the system takes no slashes.
  const std::string plugin = testsupport::replaced(QMRK_DEFAULT_LOGS_PLUGIN, "/", "\\");
  const testsupport::ChildResult result =
      testsupport::runProgram(QMRK_PLUGIN_RELOADER, {plugin, std::to_string(rounds)});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  const std::string log = testsupport::readFile(sandbox.logFolder() + "\\common.log");
  int lines = 0;
  for (std::size_t at = log.find("logged by the plugin\r\n"); at != std::string::npos;
       at = log.find("logged by the plugin\r\n", at + 1)) {
    ++lines;
  }
  EXPECT_EQ(lines, rounds);
}

INSTANTIATE_TEST_SUITE_P(WithThreadSafeAppenders, Unloading, ::testing::Values("TRUE", "FALSE"));

TEST(EndOfProcess, SucceedsWithAnAbandonedListener) {
  const testsupport::ChildResult result = testsupport::runProgram(QMRK_EXIT_WITH_LISTENER, {"abandoned"});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
}

TEST(EndOfProcess, DestroysAStaticListener) {
  const testsupport::ChildResult result = testsupport::runProgram(QMRK_EXIT_WITH_LISTENER, {"static"});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
}

}  // namespace
