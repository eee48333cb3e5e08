// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/platform.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/temporary_folder.h"

// Every function of the seam on files and folders that the effective user may not use.

namespace {

using platform::Access;
using platform::AppendFile;
using platform::ErrorCode;
using platform::isAccessible;
using platform::TextReader;
using platform::TextWriter;
using testsupport::AsUnprivilegedUser;
using testsupport::TemporaryFolder;

class AccessRights : public ::testing::Test {
 protected:
  AccessRights() {
    testsupport::makeFolders(inner_);
    testsupport::writeFile(file_, "text");
  }
  ~AccessRights() override { std::filesystem::permissions(platform::nativePath(inner_), std::filesystem::perms::all); }

  ErrorCode openToAppend(const std::string& _path) {
    ErrorCode error = platform::noError;
    appendFile_ = AppendFile::open(_path, false, error);
    return error;
  }

  TemporaryFolder folder_;
  std::string inner_ = folder_.file("inner");
  std::string file_ = inner_ + "\\file";
  std::unique_ptr<AppendFile> appendFile_;
};

TEST_F(AccessRights, RefuseNewFoldersAndFilesInAReadOnlyFolder) {
  testsupport::denyWriting(inner_);
  const AsUnprivilegedUser user;
  ErrorCode error = platform::noError;
  EXPECT_FALSE(platform::createFolder(inner_ + "\\new", error));
  EXPECT_EQ(error, 5U);
  EXPECT_FALSE(TextWriter(inner_ + "\\new", TextWriter::Mode::append).isOpen());
  EXPECT_EQ(openToAppend(inner_ + "\\new"), 5U);
  EXPECT_EQ(openToAppend(inner_ + "\\missing\\new"), 5U);
  EXPECT_FALSE(isAccessible(inner_, Access::write));
  EXPECT_TRUE(isAccessible(inner_, Access::read));
  EXPECT_EQ(testsupport::namesIn(inner_), std::vector<std::string>{"file"});
}

TEST_F(AccessRights, HideWhatIsInAnUnsearchableFolder) {
  testsupport::denyAccess(inner_);
  const AsUnprivilegedUser user;
  unsigned int mode = 0;
  ErrorCode error = platform::noError;
  EXPECT_TRUE(isAccessible(inner_, Access::exists));
  EXPECT_FALSE(isAccessible(file_, Access::exists));
  EXPECT_FALSE(platform::statusMode(file_, mode));
  EXPECT_FALSE(TextReader(file_).isOpen());
  EXPECT_FALSE(TextWriter(file_, TextWriter::Mode::truncate).isOpen());
  EXPECT_EQ(openToAppend(file_), 5U);
  EXPECT_FALSE(platform::createFolder(inner_ + "\\new", error));
  EXPECT_EQ(error, 5U);
}

TEST_F(AccessRights, RefuseReadingAnUnreadableFile) {
  testsupport::denyAccess(file_);
  const AsUnprivilegedUser user;
  EXPECT_TRUE(isAccessible(file_, Access::exists));
  EXPECT_FALSE(isAccessible(file_, Access::read));
  EXPECT_FALSE(TextReader(file_).isOpen());
}

TEST_F(AccessRights, FollowTheEffectiveUser) {
  testsupport::denyAccess(file_);
  EXPECT_EQ(isAccessible(file_, Access::read), ::geteuid() == 0);
  const AsUnprivilegedUser user;
  EXPECT_FALSE(isAccessible(file_, Access::read));
}

TEST_F(AccessRights, AllowAppendingToAWriteOnlyFile) {
  std::filesystem::permissions(platform::nativePath(file_),
                               std::filesystem::perms::owner_write | std::filesystem::perms::others_write);
  const AsUnprivilegedUser user;
  ASSERT_EQ(openToAppend(file_), platform::noError);
  EXPECT_EQ(appendFile_->append("+", 1).error, platform::noError);
  EXPECT_TRUE(appendFile_->endsInLineFeed()) << "which cannot be told";
}

TEST_F(AccessRights, KeepAFileOpenWhoseFolderIsClosedLater) {
  ASSERT_EQ(openToAppend(file_), platform::noError);
  testsupport::denyAccess(inner_);
  const AsUnprivilegedUser user;
  EXPECT_EQ(appendFile_->append("+", 1).error, platform::noError);
  EXPECT_TRUE(appendFile_->isStillAt(file_)) << "which cannot be told";
}

TEST_F(AccessRights, LoseAFileWhoseFolderBecameAFile) {
  ASSERT_EQ(openToAppend(file_), platform::noError);
  testsupport::removeAll(inner_);
  testsupport::writeFile(inner_, "");
  EXPECT_FALSE(appendFile_->isStillAt(file_));
}

TEST_F(AccessRights, FollowTheUmaskForNewFilesAndFolders) {
  const mode_t former = ::umask(0027);
  ErrorCode error = platform::noError;
  EXPECT_TRUE(platform::createFolder(inner_ + "\\folder", error));
  EXPECT_TRUE(TextWriter(inner_ + "\\written", TextWriter::Mode::truncate).isOpen());
  EXPECT_EQ(openToAppend(inner_ + "\\made\\appended"), platform::noError);
  ::umask(former);
  const auto modeOf = [this](const std::string& _name) {
    unsigned int mode = 0;
    EXPECT_TRUE(platform::statusMode(inner_ + _name, mode));
    return mode & 07777U;
  };
  EXPECT_EQ(modeOf("\\folder"), 0750U);
  EXPECT_EQ(modeOf("\\written"), 0640U);
  EXPECT_EQ(modeOf("\\made"), 0750U);
  EXPECT_EQ(modeOf("\\made\\appended"), 0640U);
}

TEST_F(AccessRights, HaveACodeOfTheirOwnForATooLongName) {
  const std::string path = inner_ + "\\" + std::string(300, 'n');
  ErrorCode error = platform::noError;
  EXPECT_FALSE(platform::createFolder(path, error));
  EXPECT_EQ(error, 206U);
  EXPECT_EQ(openToAppend(path), 206U);
  EXPECT_EQ(openToAppend(path + "\\file"), 206U);
}

TEST_F(AccessRights, KeepTheNumbersOfOtherErrors) {
  std::filesystem::create_symlink("loop", platform::nativePath(inner_ + "\\loop"));
  EXPECT_EQ(openToAppend(inner_ + "\\loop"), static_cast<ErrorCode>(ELOOP));
  EXPECT_EQ(openToAppend(file_ + "\\below"), static_cast<ErrorCode>(ENOTDIR));
  EXPECT_EQ(openToAppend(inner_), static_cast<ErrorCode>(EISDIR));
}

}  // namespace
