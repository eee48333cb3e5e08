// SPDX-License-Identifier: MIT
// Files that a command line names: a backslash in them is a character like others.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/private_events.h"

namespace {

using testing::HasSubstr;
using testsupport::ChildResult;

class QmrkctlNamedFiles : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    testsupport::usePrivateProcesses();
    testsupport::usePrivateEvents();
  }
  QmrkctlNamedFiles() {
    sandbox_.writeDemoOfCa12("LOG_STATE=TRUE\n");
    sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  }

  static ChildResult qmrkctl(const std::vector<std::string>& _arguments) {
    return testsupport::runProgram(QMRKCTL, _arguments);
  }

  std::string path(const std::string& _name) const { return folder_.path() + "/" + _name; }

  testsupport::ConfigSandbox sandbox_;
  testsupport::TemporaryFolder folder_;
};

TEST_F(QmrkctlNamedFiles, CheckReadsTheFileWithABackslashAndNotTheOneInAFolder) {
  std::filesystem::create_directory(path("old"));
  std::ofstream(path("old/draft.cfg")) << "LOG_STATE=TRUE\n";
  std::ofstream(path("old\\draft.cfg")) << "LOG_STAT=TRUE\n";
  const ChildResult result = qmrkctl({"check", path("old\\draft.cfg")});
  EXPECT_EQ(result.exitCode, 1) << result.errors;
  EXPECT_THAT(result.output,
              HasSubstr("error Q301 " + path("old\\draft.cfg") + ":1:1 nothing reads the key \"LOG_STAT\""));
  EXPECT_EQ(qmrkctl({"check", path("old\\gone.cfg")}).exitCode, 3);
}

TEST_F(QmrkctlNamedFiles, CheckReadsAClassListWithABackslashInItsName) {
  std::ofstream(path("a\\b.init")) << "\xEF\xBB\xBF"
                                      "Demo.App;\n";
  const ChildResult result = qmrkctl({"check", path("a\\b.init")});
  EXPECT_EQ(result.exitCode, 1) << result.errors;
  EXPECT_THAT(result.output, HasSubstr("Q101"));
}

TEST_F(QmrkctlNamedFiles, BundleWritesTheFileWithABackslash) {
  const ChildResult result = qmrkctl({"bundle", "--out", path("case\\17.tar.gz")});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_EQ(testsupport::namesIn(folder_.path()), (std::vector<std::string>{"case\\17.tar.gz"}));
}

TEST_F(QmrkctlNamedFiles, InitConfigFillsTheFolderWithABackslash) {
  EXPECT_EQ(qmrkctl({"init-config", "--ca", "CA5", path("new\\files")}).exitCode, 0);
  EXPECT_EQ(testsupport::namesIn(folder_.path()), (std::vector<std::string>{"new\\files"}));
  EXPECT_TRUE(std::filesystem::exists(path("new\\files") + "/qmrk_logging_CA5.cfg"));
}

}  // namespace
