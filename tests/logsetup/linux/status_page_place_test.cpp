// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "platform/linux/event_folder.h"
#include "quillmark_logging.h"
#include "tests/logsetup/linux/page_in_its_folder.h"
#include "tests/support/linux/file_size_limit.h"
#include "tests/support/linux/traced_child.h"

namespace {

using namespace Quillmark_logging;
using qmrkctl::PageState;
using testsupport::ownStatus;
using testsupport::pageOf;

using StatusPagePlace = testsupport::PageInItsFolder;

TEST_F(StatusPagePlace, ReappearsWhenItsFolderIsRemoved) {
  ASSERT_TRUE(setUp());
  ASSERT_EQ(::unlink(own().c_str()), 0);
  ASSERT_EQ(::rmdir(platform::statusFolderPath().c_str()), 0);
  ASSERT_EQ(::rmdir(platform::eventFolderPath().c_str()), 0);
  ASSERT_TRUE(updateLogLevels("CA12"));
  EXPECT_EQ(ownStatus().caInEffect, "CA12");
}

TEST_F(StatusPagePlace, ReappearsWhenAnotherFileTakesItsPlace) {
  ASSERT_TRUE(setUp());
  testsupport::writeFile(own(), "not a page");
  ASSERT_EQ(::unlink(own().c_str()), 0);
  testsupport::writeFile(own(), "not a page");
  ASSERT_TRUE(updateLogLevels("CA12"));
  EXPECT_EQ(pageOf(::getpid()).state, PageState::live);
}

TEST_F(StatusPagePlace, MayBeMissingInAFullSharedMemory) {
  for (const char* limits : {"size=4k", "size=8k", "nr_inodes=2", "nr_inodes=3"}) {
    testsupport::mountSharedMemory(limits);
    expectNoPage();
    testsupport::unmountSharedMemory();
  }
}

TEST_F(StatusPagePlace, MayBeMissingInAReadOnlySharedMemory) {
  ASSERT_EQ(::mount(nullptr, "/dev/shm", nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
  expectNoPage();
}

TEST_F(StatusPagePlace, MayBeMissingBeyondAFileSizeLimit) {
  ASSERT_TRUE(setUp());
  ASSERT_EQ(::unlink(own().c_str()), 0);
  const testsupport::FileSizeLimit limit(1000);
  EXPECT_TRUE(updateLogLevels("CA12"));
  EXPECT_TRUE(testsupport::showsNothing());
}

// A folder whose mode the umask has changed would be in the way of every later process of the user.
TEST_F(StatusPagePlace, IsNoFolderThatCouldNotBeGivenItsMode) {
  const auto makeNoPage = [] {
    ::umask(0777);
    testsupport::markCalls();
    const bool isSetUp = setUp();
    testsupport::markCalls();
    return isSetUp ? 0 : 1;
  };
  int refused = 0;
  const int status = testsupport::runTraced(makeNoPage, [&refused](long _call) {
    if (_call != SYS_fchmodat) return testsupport::CallFate();
    ++refused;
    return testsupport::CallFate{testsupport::CallFate::Kind::fails, EPERM};
  });
  EXPECT_EQ(status, 0);
  EXPECT_GT(refused, 0);
  EXPECT_FALSE(exists(platform::statusFolderPath()));
  ASSERT_TRUE(setUp());
  EXPECT_EQ(pageOf(::getpid()).state, PageState::live);
}

TEST_F(StatusPagePlace, TrustsNoForeignFolder) {
  ASSERT_EQ(::mkdir(platform::eventFolderPath().c_str(), 0700), 0);
  ASSERT_EQ(::mkdir(platform::statusFolderPath().c_str(), 0777), 0);
  ASSERT_EQ(::chmod(platform::statusFolderPath().c_str(), 0777), 0);
  expectNoPage();
  ASSERT_EQ(::rmdir(platform::statusFolderPath().c_str()), 0);
  ASSERT_EQ(::symlink("/tmp", platform::statusFolderPath().c_str()), 0);
  expectNoPage();
  EXPECT_FALSE(exists("/tmp/" + std::to_string(::getpid())));
}

TEST_F(StatusPagePlace, FollowsNoLinkInItsPlace) {
  const testsupport::TemporaryFolder elsewhere;
  testsupport::writeFile(elsewhere.path() + "/victim", "untouched");
  ASSERT_EQ(::mkdir(platform::eventFolderPath().c_str(), 0700), 0);
  ASSERT_EQ(::mkdir(platform::statusFolderPath().c_str(), 0700), 0);
  for (const char* name : {"", "."}) {
    const std::string link = platform::statusFolderPath() + "/" + name + std::to_string(::getpid());
    ASSERT_EQ(::symlink((elsewhere.path() + "/victim").c_str(), link.c_str()), 0);
  }
  ASSERT_TRUE(setUp());
  EXPECT_EQ(testsupport::readFile(elsewhere.path() + "/victim"), "untouched");
  EXPECT_EQ(pageOf(::getpid()).state, PageState::live);
}

TEST_F(StatusPagePlace, DoesNotReplaceAFolder) {
  ASSERT_EQ(::mkdir(platform::eventFolderPath().c_str(), 0700), 0);
  ASSERT_EQ(::mkdir(platform::statusFolderPath().c_str(), 0700), 0);
  ASSERT_EQ(::mkdir(own().c_str(), 0700), 0);
  expectNoPage();
  EXPECT_FALSE(exists(platform::statusFolderPath() + "/." + std::to_string(::getpid())));
}

}  // namespace
