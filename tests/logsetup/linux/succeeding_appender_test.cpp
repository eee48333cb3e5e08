// SPDX-License-Identifier: MIT
// A set-up that takes the place of another one on the file of an application. (On Windows no file can be renamed that
// two streams have open.)
#include "logsetup/succeeding_appender.h"

#include "tests/logsetup/application_logs.h"
#include "tests/support/fault_plan.h"

namespace {

using testsupport::log;
using testsupport::readFile;

class SucceedingAppender : public testsupport::ApplicationLogs {
 protected:
  SucceedingAppender() { configureRotation("6", "3"); }
};

TEST_F(SucceedingAppender, WritesToTheFileThatItsPredecessorBeganDuringTheSetUp) {
  const testsupport::FaultPlan reads(platform::Call::openForReading, 1, platform::noError);
  ASSERT_TRUE(create("App"));
  // The list of classes is the last file to be read, when the new appender has its file open and the former one is
  // still connected.
  const testsupport::CallHook beforeTheEnd(platform::Call::openForReading, reads.calls(), [] { log("App", "12345"); });
  ASSERT_TRUE(create("App"));
  EXPECT_EQ(readFile(backup(1)), "12345");
  log("App", "after");
  EXPECT_EQ(readFile(backup(1)), "after");
  EXPECT_EQ(readFile(backup(2)), "12345");
}

TEST_F(SucceedingAppender, FollowsItsPredecessorDuringTheSetUp) {
  const auto takeOver = std::make_shared<Quillmark_logging::TakeOver>();
  testsupport::makeFolders(folder());
  Quillmark_logging::SucceedingAppender appender(file(), 5, 2, takeOver);
  for (const char* message : {"1", "2"}) {
    ASSERT_EQ(
        std::rename(Quillmark_logging::nativePath(file()).c_str(), Quillmark_logging::nativePath(backup(1)).c_str()),
        0);
    appender.write(message);
    EXPECT_EQ(readFile(file()), message);
  }
}

TEST_F(SucceedingAppender, FollowsNobodyAfterTheSetUp) {
  ASSERT_TRUE(create("A;B;"));
  log("A", "12345");
  log("B", "b");
  EXPECT_EQ(readFile(backup(2)), "12345b");
}

}  // namespace
