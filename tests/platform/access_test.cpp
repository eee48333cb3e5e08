// SPDX-License-Identifier: MIT
#include "platform/access.h"

#include <gtest/gtest.h>

#include "tests/support/as_unprivileged_user.h"
#include "tests/support/fault_plan.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::Access;
using platform::Call;
using platform::isAccessible;
using platform::statusMode;
using testsupport::AsUnprivilegedUser;
using testsupport::FaultPlan;
using testsupport::TemporaryFolder;
using testsupport::writeFile;

constexpr unsigned int untouched = 0x12345678U;

TEST(Access, RefusesAMissingFileInEveryMode) {
  const TemporaryFolder folder;
  for (const Access mode : {Access::exists, Access::write, Access::read, Access::readWrite}) {
    EXPECT_FALSE(isAccessible(folder.file("missing"), mode));
  }
}

TEST(Access, AllowsAnOrdinaryFileInEveryMode) {
  const TemporaryFolder folder;
  writeFile(folder.file("ordinary"), "text");
  for (const Access mode : {Access::exists, Access::write, Access::read, Access::readWrite}) {
    EXPECT_TRUE(isAccessible(folder.file("ordinary"), mode));
  }
}

TEST(Access, FindsAFolderWithAndWithoutAFinalSeparator) {
  const TemporaryFolder folder;
  testsupport::makeFolders(folder.file("inner"));
  EXPECT_TRUE(isAccessible(folder.file("inner"), Access::exists));
  EXPECT_TRUE(isAccessible(folder.file("inner/"), Access::readWrite));
}

TEST(Access, RefusesWritingToAReadOnlyFile) {
  const TemporaryFolder folder;
  const std::string path = folder.file("read-only");
  writeFile(path, "text");
  testsupport::denyWriting(path);
  const AsUnprivilegedUser user;
  EXPECT_TRUE(isAccessible(path, Access::exists));
  EXPECT_TRUE(isAccessible(path, Access::read));
  EXPECT_FALSE(isAccessible(path, Access::write));
  EXPECT_FALSE(isAccessible(path, Access::readWrite));
}

TEST(Access, RefusesAnEmptyPath) { EXPECT_FALSE(isAccessible("", Access::exists)); }

TEST(Access, RefusesATooLongName) {
  const TemporaryFolder folder;
  EXPECT_FALSE(isAccessible(folder.file(std::string(300, 'n')), Access::exists));
}

TEST(Access, FindsANameOutsideAscii) {
  const TemporaryFolder folder;
  const std::string path = folder.file("pr\xC3\xB8ve \xC3\xA6");
  EXPECT_FALSE(isAccessible(path, Access::exists));
  writeFile(path, "text");
  EXPECT_TRUE(isAccessible(path, Access::readWrite));
}

TEST(Access, FailsAsPlanned) {
  const TemporaryFolder folder;
  const FaultPlan plan(Call::accessTest, 2, platform::errorAccessDenied);
  EXPECT_TRUE(isAccessible(folder.path(), Access::exists));
  EXPECT_FALSE(isAccessible(folder.path(), Access::exists));
  EXPECT_TRUE(isAccessible(folder.path(), Access::exists));
}

TEST(StatusMode, DiffersFromZeroForFilesAndFolders) {
  const TemporaryFolder folder;
  writeFile(folder.file("file"), "");
  unsigned int fileMode = 0;
  unsigned int folderMode = 0;
  EXPECT_TRUE(statusMode(folder.file("file"), fileMode));
  EXPECT_TRUE(statusMode(folder.path(), folderMode));
  // The bits of the kind are the same in both systems.
  EXPECT_EQ(fileMode & 0xF000U, 0x8000U);
  EXPECT_EQ(folderMode & 0xF000U, 0x4000U);
}

TEST(StatusMode, LeavesTheResultUntouchedForAMissingFile) {
  const TemporaryFolder folder;
  unsigned int mode = untouched;
  EXPECT_FALSE(statusMode(folder.file("missing"), mode));
  EXPECT_EQ(mode, untouched);
}

TEST(StatusMode, FindsANameOutsideAscii) {
  const TemporaryFolder folder;
  writeFile(folder.file("\xC3\xA9"), "");
  unsigned int mode = 0;
  EXPECT_TRUE(statusMode(folder.file("\xC3\xA9"), mode));
}

TEST(StatusMode, FailsAsPlannedAndLeavesTheResultUntouched) {
  const TemporaryFolder folder;
  const FaultPlan plan(Call::statusQuery, 1, platform::errorAccessDenied);
  unsigned int mode = untouched;
  EXPECT_FALSE(statusMode(folder.path(), mode));
  EXPECT_EQ(mode, untouched);
  EXPECT_TRUE(statusMode(folder.path(), mode));
}

}  // namespace
