// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/mount.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/linux/event_folder.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/child_process.h"
#include "tests/support/linux/shared_memory_mount.h"
#include "tests/support/private_events.h"
#include "tests/support/temporary_folder.h"

namespace {

class QmrkctlRefusal : public ::testing::Test {
 protected:
  void SetUp() override {
    testsupport::usePrivateProcesses();
    testsupport::mountSharedMemory("");
  }
  void TearDown() override { testsupport::unmountSharedMemory(); }
};

TEST_F(QmrkctlRefusal, EndsWithWrongUsageForANameThatNoEventCanHave) {
  for (const std::string& name : {std::string("a/b"), std::string("../up"), std::string(201, 'x')}) {
    const auto result = testsupport::runProgram(QMRKCTL, {"signal", "--event", name});
    EXPECT_EQ(result.exitCode, 2) << name;
    EXPECT_NE(result.errors.find("cannot name an event"), std::string::npos) << result.errors;
  }
}

TEST_F(QmrkctlRefusal, DiffersFromNobodyListeningWhenTheSystemRefuses) {
  std::ofstream(platform::eventFolderPath()) << "squatted";
  const auto result = testsupport::runProgram(QMRKCTL, {"signal"});
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_NE(result.errors.find("cannot be set (error 5)"), std::string::npos) << result.errors;
}

TEST_F(QmrkctlRefusal, SaysThatTheHelpCannotBeWritten) {
  const auto result = testsupport::runProgram("/bin/sh", {"-c", "exec \"$0\" --help >/dev/full", QMRKCTL});
  EXPECT_EQ(result.exitCode, 70);
  EXPECT_NE(result.errors.find("the help cannot be written"), std::string::npos) << result.errors;
}

TEST_F(QmrkctlRefusal, NamesWhoMayReadAFileInAFolderThatIsClosed) {
  const testsupport::TemporaryFolder folder;
  std::filesystem::create_directory(folder.path() + "/closed");
  testsupport::denyAccess(folder.path() + "/closed");
  const testsupport::AsUnprivilegedUser user;
  const auto result = testsupport::runProgram(QMRKCTL, {"check", folder.path() + "/closed/my.cfg"});
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_NE(result.errors.find("sudo qmrkctl check"), std::string::npos) << result.errors;
}

// A second try would else find the files of the first one, and write nothing.
TEST_F(QmrkctlRefusal, LeavesNoFileOfANewCaOnAFullDisk) {
  const testsupport::TemporaryFolder folder;
  ASSERT_EQ(::mount("qmrk-test", folder.path().c_str(), "tmpfs", 0, "nr_inodes=3"), 0);
  const auto result = testsupport::runProgram(QMRKCTL, {"init-config", "--ca", "CA5", folder.path()});
  EXPECT_EQ(result.exitCode, 70);
  EXPECT_EQ(result.output, "");
  EXPECT_NE(result.errors.find("qmrk_logging_GE.cfg: No space left"), std::string::npos) << result.errors;
  EXPECT_EQ(testsupport::namesIn(folder.path()), std::vector<std::string>());
  EXPECT_EQ(::umount(folder.path().c_str()), 0);
}

}  // namespace
