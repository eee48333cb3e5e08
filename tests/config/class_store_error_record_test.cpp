// SPDX-License-Identifier: MIT
#include "config/class_store_error_record.h"

#include <gtest/gtest.h>

#include "config/cfg_data_manager.h"
#include "tests/config/records.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/captured_console.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"
#include "trace/trace_flags.h"

using Quillmark_logging::errorRecordText;

namespace {

using platform::Call;
using testsupport::AsUnprivilegedUser;
using testsupport::FaultPlan;
using testsupport::makeFolders;
using testsupport::readFile;
using testsupport::recordsIn;
using Records = std::vector<std::string>;

class ErrorRecord : public testing::Test {
 protected:
  std::string infoFile() const { return sandbox_.logFolder() + "\\qmrk.info"; }

  testsupport::ConfigSandbox sandbox_;
  CfgDataManager* store_ = CfgDataManager::getInstance(false);
};

TEST_F(ErrorRecord, EndsWithABlankUnlessItNamesACaller) {
  EXPECT_EQ(errorRecordText("ca12", "Text.", ""), "Text. [ca12] ");
  EXPECT_EQ(errorRecordText("CA12", "Text.", "App"), "Text. [CA12] [Called by App]");
}

TEST_F(ErrorRecord, AppendsToTheFileBelowTheLogRootOfTheCa) {
  sandbox_.writeCfg("CA12", "COMMON_LOG_FILE_ROOT=Own\\Logs\n");
  makeFolders(sandbox_.appData() + "\\Own\\Logs");
  EXPECT_TRUE(store_->writeErrorRecord("CA12", "One.", ""));
  EXPECT_TRUE(store_->writeErrorRecord("CA12", "Two.", "App"));
  EXPECT_EQ(recordsIn(sandbox_.appData() + "\\Own\\Logs\\qmrk.info"),
            (Records{"One. [CA12] ", "Two. [CA12] [Called by App]"}));
}

TEST_F(ErrorRecord, FailsWhenTheFolderIsMissing) {
  EXPECT_FALSE(store_->writeErrorRecord("CA12", "Text.", ""));
  EXPECT_FALSE(testsupport::exists(sandbox_.logFolder()));
}

TEST_F(ErrorRecord, FailsWhenTheFileIsReadOnly) {
  makeFolders(sandbox_.logFolder());
  testsupport::writeFile(infoFile(), "");
  testsupport::denyWriting(infoFile());
  {
    const AsUnprivilegedUser user;
    EXPECT_FALSE(store_->writeErrorRecord("CA12", "Text.", ""));
  }
  EXPECT_EQ(readFile(infoFile()), "");
}

TEST_F(ErrorRecord, FailsWhenTheDiskIsFull) {
  makeFolders(sandbox_.logFolder());
  const FaultPlan failure(Call::write, 1, platform::errorDiskFull);
  EXPECT_FALSE(store_->writeErrorRecord("CA12", "Text.", ""));
}

TEST_F(ErrorRecord, UsesADefaultLogRoot) {
  std::string root;
  EXPECT_TRUE(store_->getLogRootPath(root, "CA12"));
  EXPECT_EQ(root, sandbox_.appData() + R"(\Orvane\Quillmark\Logging)");
}

TEST_F(ErrorRecord, PutsABackslashBeforeEveryLogRoot) {
  std::string root;
  sandbox_.writeCfg("CA12", "COMMON_LOG_FILE_ROOT=\\Logs\n");
  EXPECT_TRUE(store_->getLogRootPath(root, "CA12"));
  EXPECT_EQ(root, sandbox_.appData() + R"(\\Logs)");
  sandbox_.writeCfg("CA12", "COMMON_LOG_FILE_ROOT= \n");
  EXPECT_TRUE(store_->getLogRootPath(root, "CA12"));
  EXPECT_EQ(root, sandbox_.appData() + "\\");
}

TEST_F(ErrorRecord, LeavesTheLogRootUntouchedWhenTheSystemNamesNoFolder) {
  const FaultPlan failure(Call::shellFolder, 1, platform::errorPathNotFound);
  std::string root = "preset";
  EXPECT_FALSE(store_->getLogRootPath(root, "CA12"));
  EXPECT_EQ(root, "preset");
}

// Each of the two switches is on where the other one is off.
TEST_F(ErrorRecord, TracesTheLogRootByTheSwitchOfTheStore) {
  const testsupport::CapturedConsole console;
  std::string root;
  EXPECT_TRUE(CfgDataManager::getInstance(true)->getLogRootPath(root, "CA12"));
  const std::string fetch =
      "==> CfgDataManager::getInstance()\r\n<== CfgDataManager::getInstance() Instance returned.\r\n";
  EXPECT_TRUE(console.text().starts_with(fetch + fetch + "==> CfgDataManager::getQmrkCfgFilePath()")) << console.text();
  const std::string before = console.text();
  Quillmark_logging::setLoadTimeTrace(true);
  EXPECT_TRUE(CfgDataManager::getInstance(false)->getLogRootPath(root, "CA12"));
  Quillmark_logging::setLoadTimeTrace(false);
  EXPECT_EQ(console.text(), before);
}

TEST_F(ErrorRecord, NeedsACaForTheLogRoot) {
  std::string root = "preset";
  EXPECT_FALSE(store_->getLogRootPath(root, ""));
  EXPECT_EQ(root, sandbox_.appData());
}

TEST_F(ErrorRecord, AcceptsOneStringForLogRootAndCa) {
  sandbox_.writeCfg("CA12", "COMMON_LOG_FILE_ROOT=Own\n");
  std::string text = "CA12";
  EXPECT_TRUE(store_->getLogRootPath(text, text));
  EXPECT_EQ(text, sandbox_.appData() + "\\Own");
}

}  // namespace
