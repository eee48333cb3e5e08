// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "quillmark_logging.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"
#include "tests/support/golden.h"
#include "tests/trace/masked_object_bytes.h"
#include "tests/trace/traced_console.h"

namespace {

using platform::Call;
using Quillmark_logging::getCommonLogFilePath;
using testsupport::FaultPlan;

class CommonLogPath : public testing::Test {
 protected:
  std::string pathFor(const std::string& _cfg) {
    sandbox_.writeCfg("CA12", _cfg);
    std::string path;
    EXPECT_TRUE(getCommonLogFilePath(path, "ca12"));
    return path;
  }

  testing::AssertionResult traceMatches(const std::string& _ca, const std::string& _golden) {
    const testsupport::TracedConsole console;
    std::string path;
    getCommonLogFilePath(path, _ca);
    return testsupport::matchesGolden(testsupport::maskedObjectBytes(sandbox_.masked(console.text())), _golden);
  }

  testsupport::ConfigSandbox sandbox_;
};

TEST_F(CommonLogPath, JoinsTheUsersApplicationDataAndTheConfiguredRoot) {
  EXPECT_EQ(pathFor("COMMON_LOG_FILE_ROOT=Own\\Logs\n"), sandbox_.appData() + "\\Own\\Logs");
}

TEST_F(CommonLogPath, KeepsABackslashAtEitherEndOfTheRoot) {
  EXPECT_EQ(pathFor("COMMON_LOG_FILE_ROOT=\\Logs\\\n"), sandbox_.appData() + "\\\\Logs\\");
}

TEST_F(CommonLogPath, EndsWithABackslashWhenTheRootIsEmpty) {
  EXPECT_EQ(pathFor("COMMON_LOG_FILE_ROOT=  \n"), sandbox_.appData() + "\\");
}

TEST_F(CommonLogPath, UsesADefaultRoot) {
  EXPECT_EQ(pathFor("CA_NR=CA12\n"), sandbox_.appData() + R"(\Orvane\Quillmark\Logging)");
}

TEST_F(CommonLogPath, UsesTheDefaultForACaWithoutAFile) {
  std::string path;
  EXPECT_TRUE(getCommonLogFilePath(path, "CA77"));
  EXPECT_EQ(path, sandbox_.logFolder());
}

TEST_F(CommonLogPath, CreatesNoFolder) {
  pathFor("");
  EXPECT_TRUE(sandbox_.newInAppData().empty());
}

TEST_F(CommonLogPath, StaysUntouchedWhenTheSystemNamesNoFolder) {
  const FaultPlan failure(Call::shellFolder, 1, platform::errorPathNotFound);
  std::string path = "preset";
  EXPECT_FALSE(getCommonLogFilePath(path, "CA12"));
  EXPECT_EQ(path, "preset");
}

TEST_F(CommonLogPath, FailsForAnEmptyCaAndGivesTheApplicationDataFolder) {
  std::string path = "preset";
  EXPECT_FALSE(getCommonLogFilePath(path, ""));
  EXPECT_EQ(path, sandbox_.appData());
}

TEST_F(CommonLogPath, AcceptsOneStringForPathAndCa) {
  sandbox_.writeCfg("CA12", "COMMON_LOG_FILE_ROOT=Own\n");
  std::string text = "CA12";
  EXPECT_TRUE(getCommonLogFilePath(text, text));
  EXPECT_EQ(text, sandbox_.appData() + "\\Own");
}

TEST_F(CommonLogPath, TracesAConfiguredRoot) {
  sandbox_.writeCfg("CA12", "COMMON_LOG_FILE_ROOT=Own\\Logs\n");
  EXPECT_TRUE(traceMatches("CA12", "config_common_path.txt"));
}

TEST_F(CommonLogPath, TracesTheDefaultRootAsAnObject) {
  sandbox_.writeCfg("CA12", "A=1\n");
  EXPECT_TRUE(traceMatches("CA12", "config_common_path_default.txt"));
}

TEST_F(CommonLogPath, TracesACaWithoutAPath) { EXPECT_TRUE(traceMatches("", "config_common_path_no_ca.txt")); }

TEST_F(CommonLogPath, TracesAnUnknownFolder) {
  const FaultPlan failure(Call::shellFolder, 1, platform::errorPathNotFound);
  EXPECT_TRUE(traceMatches("CA12", "config_common_path_unknown_folder.txt"));
}

TEST_F(CommonLogPath, DoesNotPrintTheDefaultRootsText) {
  const testsupport::TracedConsole console;
  std::string path;
  EXPECT_TRUE(getCommonLogFilePath(path, "CA12"));
  EXPECT_EQ(console.text().find("=> Orvane"), std::string::npos);
}

}  // namespace
