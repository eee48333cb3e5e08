// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/viewpoint.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "tests/support/as_unprivileged_user.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/temporary_folder.h"
#include "tools/system/process_condition.h"

namespace {

using namespace qmrkctl;
namespace fs = std::filesystem;

Viewpoint nobody() { return viewpointOfUser("65534").value(); }

TEST(ViewpointTest, HasThisEnvironmentForTheRunningUser) {
  const testsupport::ConfigSandbox sandbox;
  std::string path;
  EXPECT_TRUE(baseFolder(ownViewpoint(), platform::ShellFolder::userAppData, path));
  EXPECT_EQ(path, sandbox.appData());
}

TEST(ViewpointTest, HasTheHomeOfAUserAndTheFoldersOfTheMachine) {
  const testsupport::ConfigSandbox sandbox;
  const Viewpoint root = viewpointOfUser("root").value();
  std::string path;
  EXPECT_TRUE(baseFolder(root, platform::ShellFolder::userAppData, path));
  EXPECT_EQ(path, "/root/.local/share");
  EXPECT_TRUE(baseFolder(root, platform::ShellFolder::commonProgramFiles, path));
  EXPECT_EQ(path, sandbox.commonProgramFiles());
}

TEST(ViewpointTest, DoesNotExistForAnUnknownUserOrProcess) {
  EXPECT_FALSE(viewpointOfUser("no such user"));
  EXPECT_FALSE(viewpointOfUser(""));
  EXPECT_FALSE(viewpointOfProcess(0x7FFFFFFF));
}

TEST(ViewpointTest, ExistsForANumberWithoutPasswordEntry) {
  const Viewpoint viewpoint = viewpointOfUser("54321").value();
  EXPECT_EQ(viewpoint.account.name, "54321");
  EXPECT_EQ(viewpoint.account.uid, 54321U);
  EXPECT_EQ(viewpoint.environment.count("HOME"), 0U);
}

TEST(ViewpointTest, HasUserAndFileSystemOfAProcess) {
  const Viewpoint self = viewpointOfProcess(::getpid()).value();
  EXPECT_EQ(self.account.uid, ::geteuid());
  EXPECT_EQ(self.root, "");
  EXPECT_FALSE(self.environment.empty());
}

TEST(ViewpointTest, JudgesRightsByTheIdsOfTheUser) {
  const testsupport::TemporaryFolder folder;
  const std::string file = folder.path() + "/f";
  testsupport::writeFile(file, "x");
  fs::permissions(file, fs::perms(0600));
  EXPECT_TRUE(mayRead(ownViewpoint(), file));
  const toolsystem::PathRights rights = rightsOn(nobody(), file);
  EXPECT_TRUE(rights.exists);
  EXPECT_FALSE(rights.isReadable);
  EXPECT_FALSE(rights.isWritable);
  fs::permissions(file, fs::perms(0644));
  EXPECT_TRUE(mayRead(nobody(), file));
  EXPECT_FALSE(mayWrite(nobody(), file));
}

TEST(ViewpointTest, FindsNothingInAFolderThatTheUserMayNotEnter) {
  const testsupport::TemporaryFolder folder;
  fs::create_directory(folder.path() + "/d");
  testsupport::writeFile(folder.path() + "/d/f", "x");
  fs::permissions(folder.path() + "/d", fs::perms(0700));
  EXPECT_FALSE(rightsOn(nobody(), folder.path() + "/d/f").exists);
  EXPECT_TRUE(rightsOn(ownViewpoint(), folder.path() + "/d/f").exists);
}

TEST(ViewpointTest, MayWriteInAFolderOnlyWhereTheUserMayEnterItToo) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.path() + "/d";
  fs::create_directory(path);
  fs::permissions(path, fs::perms(0777));
  EXPECT_TRUE(mayWrite(nobody(), path));
  fs::permissions(path, fs::perms(0666));
  EXPECT_FALSE(mayWrite(nobody(), path));
}

TEST(ViewpointTest, KnowsAMissingPathFromAHiddenOne) {
  const testsupport::TemporaryFolder folder;
  fs::create_directory(folder.path() + "/d");
  testsupport::denyAccess(folder.path() + "/d");
  const testsupport::AsUnprivilegedUser user;
  EXPECT_TRUE(factsOf(ownViewpoint(), folder.path() + "/d/f").isHidden);
  EXPECT_FALSE(factsOf(ownViewpoint(), folder.path() + "/f").isHidden);
}

TEST(ViewpointTest, SeesWhatIsAtAPath) {
  using toolsystem::PathKind;
  const testsupport::TemporaryFolder folder;
  const std::string base = folder.path() + "/";
  testsupport::writeFile(base + "f", "12345");
  fs::create_symlink("nowhere", base + "dangling");
  fs::create_symlink("f", base + "link");
  EXPECT_EQ(factsOf(ownViewpoint(), base + "f").size, 5);
  EXPECT_EQ(factsOf(ownViewpoint(), base + "gone").kind, PathKind::missing);
  EXPECT_EQ(factsOf(ownViewpoint(), base).kind, PathKind::folder);
  EXPECT_EQ(factsOf(ownViewpoint(), base + "dangling").kind, PathKind::danglingLink);
  EXPECT_EQ(factsOf(ownViewpoint(), base + "link").kind, PathKind::file);
  EXPECT_TRUE(factsOf(ownViewpoint(), base + "link").isLink);
}

// A folder stands for the root of another process.
TEST(ViewpointTest, FollowsLinksFromTheRootOfTheProcess) {
  const testsupport::TemporaryFolder root;
  fs::create_directories(root.path() + "/etc/real");
  testsupport::writeFile(root.path() + "/etc/real/file", "x");
  fs::create_symlink("/etc/real/file", root.path() + "/absolute");
  fs::create_symlink("../../etc/real", root.path() + "/above");
  fs::create_symlink("/etc/passwd", root.path() + "/dangling");
  fs::create_symlink("loop", root.path() + "/loop");
  Viewpoint viewpoint = ownViewpoint();
  viewpoint.root = root.path();
  EXPECT_EQ(reachedPath(viewpoint, "/absolute"), root.path() + "/etc/real/file");
  EXPECT_EQ(reachedPath(viewpoint, "\\above\\file"), root.path() + "/etc/real/file");
  EXPECT_EQ(reachedPath(viewpoint, "/etc/../../new"), root.path() + "/new");
  EXPECT_EQ(factsOf(viewpoint, "/absolute").kind, toolsystem::PathKind::file);
  EXPECT_TRUE(factsOf(viewpoint, "/absolute").isLink);
  EXPECT_EQ(factsOf(viewpoint, "/dangling").kind, toolsystem::PathKind::danglingLink);
  EXPECT_EQ(factsOf(viewpoint, "/loop").kind, toolsystem::PathKind::danglingLink);
  EXPECT_EQ(factsOf(viewpoint, "/new").kind, toolsystem::PathKind::missing);
}

// A program with set-user-id gets nothing from secure_getenv.
TEST(ViewpointTest, IgnoresWhatTheLibraryIgnoresInAProcessWithMoreRights) {
  const testsupport::ConfigSandbox sandbox;
  const testsupport::TemporaryFolder folder;
  const std::string program = folder.path() + "/sleep";
  fs::copy("/bin/sleep", program);
  ASSERT_EQ(::chown(program.c_str(), 65534, 65534), 0);
  fs::permissions(program, fs::perms(04755));
  for (const bool isSecure : {true, false}) {
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    const pid_t child = ::fork();
    if (child == 0) {
      ::execl(isSecure ? program.c_str() : "/bin/sleep", "sleep", "1000", nullptr);
      ::_exit(1);
    }
    ::close(ends[1]);
    char byte = 0;
    EXPECT_EQ(::read(ends[0], &byte, 1), 0) << "the end of the pipe tells of the exec";
    ::close(ends[0]);
    const Viewpoint viewpoint = viewpointOfProcess(child).value();
    EXPECT_EQ(viewpoint.environment.count("QMRK_APPDATA"), isSecure ? 0U : 1U);
    EXPECT_EQ(viewpoint.environment.count("PATH"), 1U);
    EXPECT_EQ(toolsystem::conditionOfProcess(child).ignoresEnvironment, isSecure);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
  }
}

}  // namespace
