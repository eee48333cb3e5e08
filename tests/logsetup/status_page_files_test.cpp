// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "diagnostics/status_page.h"
#include "logsetup/file_status.h"
#include "tests/logsetup/page_of_setup.h"
#include "tests/support/fault_plan.h"

namespace {

using namespace Quillmark_logging;
using testsupport::FaultPlan;
using testsupport::ownStatus;

using FilesOnThePage = testsupport::PageOfSetup;

TEST_F(FilesOnThePage, TellsOfTheFiles) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  ASSERT_TRUE(createApplicationSpecificLogFile("Def.a;", "plain", "CA12", false));
  writeCfg("CA12", "LOG_STATE=TRUE\nSPEC_LOG_ROTATION=TRUE\n");
  ASSERT_TRUE(createApplicationSpecificLogFile("Def.a;", "rolling", "CA12", false));
  const std::string folder = sandbox_.logFolder() + "\\Application logs\\";
  EXPECT_EQ(fileOf(commonLog()).kind, status::FileKind::common);
  EXPECT_EQ(fileOf(folder + "plain_log.txt").kind, status::FileKind::plain);
  EXPECT_EQ(fileOf(folder + "rolling_log.txt").kind, status::FileKind::rolling);
  EXPECT_EQ(fileOf(commonLog()).lost, 0U);
  EXPECT_FALSE(fileOf(commonLog()).failedAt);
}

TEST_F(FilesOnThePage, TellsAtOnceWhatTheCommonLogLoses) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  {
    const FaultPlan plan(platform::Call::append, 1, platform::errorDiskFull, 3);
    for (int i = 0; i < 3; ++i)
      log("Def.a", "lost");
  }
  const qmrkctl::LogFileStatus failing = fileOf(commonLog());
  EXPECT_EQ(failing.lost, 3U);
  EXPECT_EQ(failing.error, platform::errorDiskFull);
  EXPECT_TRUE(failing.isFailing);
  EXPECT_TRUE(failing.failedAt);
  log("Def.a", "written");
  EXPECT_FALSE(fileOf(commonLog()).isFailing);
  EXPECT_EQ(fileOf(commonLog()).lost, 3U);
}

TEST_F(FilesOnThePage, TellsAtOnceWhatARotatedLogLoses) {
  writeCfg("CA12", "LOG_STATE=TRUE\nSPEC_LOG_ROTATION=TRUE\n");
  ASSERT_TRUE(createApplicationSpecificLogFile("Def.a;", "rolling", "CA12", false));
  const std::string path = sandbox_.logFolder() + "\\Application logs\\rolling_log.txt";
  {
    const FaultPlan plan(platform::Call::write, 1, platform::errorDiskFull, 1);
    log("Def.a", "lost");
  }
  EXPECT_EQ(fileOf(path).lost, 1U);
  EXPECT_EQ(fileOf(path).error, platform::errorDiskFull);
  EXPECT_TRUE(fileOf(path).isFailing);
  log("Def.a", "lost, as the stream has failed");
  EXPECT_EQ(fileOf(path).lost, 2U);
  ASSERT_TRUE(createApplicationSpecificLogFile("Def.a;", "rolling", "CA12", false));
  EXPECT_FALSE(fileOf(path).isFailing);
}

TEST_F(FilesOnThePage, TellsThatThreadsWriteTheFiles) {
  setTsMode(true);
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  ASSERT_TRUE(createApplicationSpecificLogFile("Def.a;", "plain", "CA12", false));
  EXPECT_TRUE(ownStatus().isThreadSafe);
  EXPECT_TRUE(fileOf(commonLog()).hasOwnThread);
  EXPECT_EQ(fileOf(commonLog()).held, 0U);
}

TEST_F(FilesOnThePage, CountsFilesForWhichThereIsNoRoom) {
  for (int i = 0; i < 20; ++i) {
    ASSERT_TRUE(createApplicationSpecificLogFile("Def.a;", "file" + std::to_string(i), "CA12", false));
  }
  EXPECT_EQ(ownStatus().files.size(), 16U);
  EXPECT_EQ(ownStatus().filesLeftOut, 4U);
}

// Who loses a line while another thread writes the page cannot show it, and does not wait.
TEST_F(FilesOnThePage, TellsOfWhatIsLostWhileThePageIsWritten) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  status::changePageBy([this](status::StatusImage& /*_image*/) {
    std::thread([this] { noteLostLine(commonLog(), platform::errorDiskFull); }).join();
  });
  EXPECT_EQ(fileOf(commonLog()).lost, 0U) << "a mark is left";
  showMissedFiles();
  EXPECT_EQ(fileOf(commonLog()).lost, 1U);
}

TEST_F(FilesOnThePage, TellsWithTheNextUpdateOfWhatWasLostMeanwhile) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  status::changePageBy([this](status::StatusImage& /*_image*/) {
    std::thread([this] { noteLostLine(commonLog(), platform::errorDiskFull); }).join();
  });
  ASSERT_TRUE(updateLogLevels("CA12"));
  EXPECT_EQ(fileOf(commonLog()).lost, 1U);
}

}  // namespace
