// SPDX-License-Identifier: MIT
#include "platform/shell_folder.h"

#include <gtest/gtest.h>

#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"

namespace {

using platform::ShellFolder;
using platform::shellFolder;
using testsupport::ConfigSandbox;

constexpr ShellFolder allFolders[] = {ShellFolder::userAppData, ShellFolder::commonProgramFiles,
                                      ShellFolder::commonAppData};

TEST(ShellFolders, ComeFromTheSandbox) {
  const ConfigSandbox sandbox;
  std::string path;
  EXPECT_TRUE(shellFolder(ShellFolder::userAppData, path));
  EXPECT_EQ(path, sandbox.appData());
  EXPECT_TRUE(shellFolder(ShellFolder::commonProgramFiles, path));
  EXPECT_EQ(path, sandbox.commonProgramFiles());
  EXPECT_TRUE(shellFolder(ShellFolder::commonAppData, path));
  EXPECT_EQ(path, sandbox.commonAppData());
}

TEST(ShellFolders, EndWithoutASeparator) {
  for (const ShellFolder folder : allFolders) {
    std::string path;
    ASSERT_TRUE(shellFolder(folder, path));
    ASSERT_FALSE(path.empty());
    EXPECT_NE(path.back(), '/');
    EXPECT_NE(path.back(), '\\');
  }
}

TEST(ShellFolders, FailAsPlannedAndLeaveThePath) {
  for (const ShellFolder folder : allFolders) {
    const testsupport::FaultPlan plan(platform::Call::shellFolder, 2, platform::errorAccessDenied);
    std::string path;
    EXPECT_TRUE(shellFolder(folder, path));
    path = "untouched";
    EXPECT_FALSE(shellFolder(folder, path));
    EXPECT_EQ(path, "untouched");
    EXPECT_TRUE(shellFolder(folder, path));
  }
}

}  // namespace
