// SPDX-License-Identifier: MIT
#include "platform/directory.h"

#include <gtest/gtest.h>

#include "tests/support/fault_plan.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::createFolder;
using platform::ErrorCode;
using testsupport::TemporaryFolder;

constexpr ErrorCode untouchedError = 4711;

TEST(CreateFolder, CreatesOneFolderAndReportsNoError) {
  const TemporaryFolder folder;
  ErrorCode error = untouchedError;
  EXPECT_TRUE(createFolder(folder.file("new"), error));
  EXPECT_EQ(error, platform::noError);
  EXPECT_EQ(testsupport::namesIn(folder.path()), std::vector<std::string>{"new"});
}

TEST(CreateFolder, AcceptsAFinalSeparatorOfEitherKind) {
  const TemporaryFolder folder;
  ErrorCode error = untouchedError;
  EXPECT_TRUE(createFolder(folder.file("back\\"), error));
  EXPECT_TRUE(createFolder(folder.file("forward/"), error));
  EXPECT_EQ(testsupport::namesIn(folder.path()), (std::vector<std::string>{"back", "forward"}));
}

TEST(CreateFolder, ReportsAlreadyExistsForAFolder) {
  const TemporaryFolder folder;
  ErrorCode error = untouchedError;
  EXPECT_FALSE(createFolder(folder.path(), error));
  EXPECT_EQ(error, 183U);
}

TEST(CreateFolder, ReportsAlreadyExistsForAFile) {
  const TemporaryFolder folder;
  testsupport::writeFile(folder.file("file"), "");
  ErrorCode error = untouchedError;
  EXPECT_FALSE(createFolder(folder.file("file"), error));
  EXPECT_EQ(error, 183U);
}

TEST(CreateFolder, ReportsPathNotFoundForAMissingParentAndCreatesNothing) {
  const TemporaryFolder folder;
  ErrorCode error = untouchedError;
  EXPECT_FALSE(createFolder(folder.file("missing\\new"), error));
  EXPECT_EQ(error, 3U);
  EXPECT_TRUE(testsupport::namesIn(folder.path()).empty());
}

TEST(CreateFolder, ReportsPathNotFoundForAnEmptyPath) {
  ErrorCode error = untouchedError;
  EXPECT_FALSE(createFolder("", error));
  EXPECT_EQ(error, 3U);
}

TEST(CreateFolder, CreatesANameOutsideAscii) {
  const TemporaryFolder folder;
  ErrorCode error = untouchedError;
  EXPECT_TRUE(createFolder(folder.file("\xC3\xA5rhus"), error));
  EXPECT_TRUE(testsupport::exists(folder.file("\xC3\xA5rhus")));
}

TEST(CreateFolder, FailsAsPlannedAndCreatesNothing) {
  const TemporaryFolder folder;
  const testsupport::FaultPlan plan(platform::Call::createDirectory, 2, platform::errorDiskFull);
  ErrorCode error = untouchedError;
  EXPECT_TRUE(createFolder(folder.file("one"), error));
  EXPECT_FALSE(createFolder(folder.file("two"), error));
  EXPECT_EQ(error, platform::errorDiskFull);
  EXPECT_FALSE(testsupport::exists(folder.file("two")));
  EXPECT_TRUE(createFolder(folder.file("three"), error));
  EXPECT_EQ(error, platform::noError);
}

}  // namespace
