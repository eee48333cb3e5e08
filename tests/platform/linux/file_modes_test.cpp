// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/platform.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/temporary_folder.h"

// Who may read what the library creates, and where it does not follow a link.

namespace {

using platform::AppendFile;
using platform::ErrorCode;
using platform::TextReader;
using platform::TextWriter;
using testsupport::stranger;

class FileModes : public ::testing::Test {
 protected:
  FileModes() : formerUmask_(::umask(0)) {}
  ~FileModes() override { ::umask(formerUmask_); }

  unsigned int modeOf(const std::string& _name) const {
    unsigned int mode = 0;
    EXPECT_TRUE(platform::statusMode(folder_.file(_name), mode)) << _name;
    return mode & 07777U;
  }

  void create(const std::string& _name, TextWriter::Mode _mode) const {
    EXPECT_TRUE(TextWriter(folder_.file(_name), _mode).isOpen());
  }

  const testsupport::TemporaryFolder folder_;

 private:
  const mode_t formerUmask_;
};

TEST_F(FileModes, LetTheGroupButNobodyElseReadLogsAndRecords) {
  ErrorCode error = platform::noError;
  EXPECT_NE(AppendFile::open(folder_.file("outer\\inner\\log"), false, error), nullptr);
  create("records", TextWriter::Mode::append);
  EXPECT_EQ(modeOf("outer\\inner\\log"), 0640U);
  EXPECT_EQ(modeOf("records"), 0640U);
  EXPECT_EQ(modeOf("outer\\inner"), 0750U);
  EXPECT_EQ(modeOf("outer"), 0750U);
  EXPECT_TRUE(platform::createFolder(folder_.file("folder"), error));
  EXPECT_EQ(modeOf("folder"), 0750U);
}

TEST_F(FileModes, LetEverybodyReadTheConfiguration) {
  create("configuration", TextWriter::Mode::truncate);
  EXPECT_EQ(modeOf("configuration"), 0644U);
}

TEST_F(FileModes, StayWithinTheUmask) {
  ::umask(077);
  create("configuration", TextWriter::Mode::truncate);
  create("records", TextWriter::Mode::append);
  EXPECT_EQ(modeOf("configuration"), 0600U);
  EXPECT_EQ(modeOf("records"), 0600U);
}

TEST_F(FileModes, StayUnchangedForAnExistingFile) {
  testsupport::writeFile(folder_.file("records"), "old\n");
  ASSERT_EQ(::chmod(platform::nativePath(folder_.file("records")).c_str(), 0666), 0);
  create("records", TextWriter::Mode::append);
  EXPECT_EQ(modeOf("records"), 0666U);
}

// A log that is a link to a file elsewhere.
class LinkedLog : public ::testing::Test {
 protected:
  LinkedLog() {
    testsupport::makeFolders(inner_);
    std::filesystem::create_symlink(platform::nativePath(target_), platform::nativePath(link_));
    setMode(0755);
  }

  void setMode(mode_t _mode) const { EXPECT_EQ(::chmod(platform::nativePath(inner_).c_str(), _mode), 0); }

  void addLink(const std::string& _name, const std::string& _target) const {
    std::filesystem::create_symlink(_target, platform::nativePath(folder_.file(_name)));
  }

  void replaceLink(const std::string& _target) const {
    std::filesystem::remove(platform::nativePath(link_));
    addLink("inner/log", _target);
  }

  void closeOuterFolder() const { ASSERT_EQ(::chmod(platform::nativePath(folder_.path()).c_str(), 0755), 0); }

  void makeOpenFolder() const {
    testsupport::makeFolders(folder_.file("open"));
    ASSERT_EQ(::chmod(platform::nativePath(folder_.file("open")).c_str(), 01777), 0);
  }

  // Whether all the ways of writing a log or a record follow the link, or none does.
  void expectFollowed(bool _isFollowed) const {
    ErrorCode error = platform::noError;
    EXPECT_EQ(AppendFile::open(link_, false, error) != nullptr, _isFollowed);
    EXPECT_EQ(error, _isFollowed ? platform::noError : platform::errorAccessDenied);
    EXPECT_EQ(TextWriter(link_, TextWriter::Mode::append).isOpen(), _isFollowed);
    EXPECT_EQ(testsupport::exists(target_), _isFollowed);
  }

  const testsupport::TemporaryFolder folder_;
  const std::string target_ = folder_.file("target");
  const std::string inner_ = folder_.file("inner");
  const std::string link_ = inner_ + "\\log";
};

TEST_F(LinkedLog, OpensInAFolderThatOnlyTheUserMayWrite) { expectFollowed(true); }

TEST_F(LinkedLog, DoesNotOpenInAFolderThatEverybodyMayWrite) {
  setMode(01777);
  expectFollowed(false);
}

TEST_F(LinkedLog, DoesNotOpenInAFolderThatTheGroupMayWrite) {
  setMode(0775);
  expectFollowed(false);
}

TEST_F(LinkedLog, DoesNotOpenInAFolderOfAnotherUser) {
  ASSERT_EQ(::chown(platform::nativePath(inner_).c_str(), stranger, stranger), 0);
  expectFollowed(false);
}

TEST_F(LinkedLog, OpensInAFolderOfRootForAnotherUser) {
  ASSERT_EQ(::chown(platform::nativePath(inner_).c_str(), 0, 0), 0);
  testsupport::writeFile(target_, "");
  ASSERT_EQ(::chmod(platform::nativePath(target_).c_str(), 0666), 0);
  ASSERT_EQ(::seteuid(stranger), 0);
  expectFollowed(true);
  ASSERT_EQ(::seteuid(0), 0);
}

TEST_F(LinkedLog, OpensThroughLinksInFoldersThatOnlyTheUserMayWrite) {
  closeOuterFolder();
  replaceLink("../second");
  addLink("second", "inner/third");
  addLink("inner/third", "../inner/./fourth/target");
  addLink("inner/fourth", platform::nativePath(folder_.path()) + "//");
  expectFollowed(true);
}

TEST_F(LinkedLog, DoesNotOpenThroughALinkInAFolderThatEverybodyMayWrite) {
  closeOuterFolder();
  replaceLink("../open/second");
  makeOpenFolder();
  addLink("open/second", platform::nativePath(target_));
  expectFollowed(false);
}

TEST_F(LinkedLog, DoesNotOpenThroughAFolderLinkThatEverybodyMayReplace) {
  closeOuterFolder();
  replaceLink("../open/second/target");
  makeOpenFolder();
  addLink("open/second", platform::nativePath(folder_.path()));
  expectFollowed(false);
}

TEST_F(LinkedLog, OpensAFileInAFolderThatEverybodyMayWrite) {
  makeOpenFolder();
  replaceLink("../open/log");
  EXPECT_TRUE(TextWriter(link_, TextWriter::Mode::append).isOpen());
  EXPECT_TRUE(testsupport::exists(folder_.file("open\\log")));
}

TEST_F(LinkedLog, DoesNotOpenWhenItLeadsInACircle) {
  closeOuterFolder();
  replaceLink("../second");
  addLink("second", "inner/log");
  ErrorCode error = platform::noError;
  EXPECT_EQ(AppendFile::open(link_, false, error), nullptr);
  EXPECT_EQ(error, static_cast<ErrorCode>(ELOOP));
  EXPECT_FALSE(TextWriter(link_, TextWriter::Mode::append).isOpen());
}

TEST_F(LinkedLog, DoesNotOpenThroughAMissingFolder) {
  replaceLink("../missing/target");
  EXPECT_FALSE(TextWriter(link_, TextWriter::Mode::append).isOpen());
  EXPECT_FALSE(testsupport::exists(folder_.file("missing")));
}

TEST_F(LinkedLog, OpensAnywhereAsAConfiguration) {
  testsupport::writeFile(target_, "text");
  setMode(01777);
  EXPECT_TRUE(TextReader(link_).isOpen());
  EXPECT_TRUE(TextWriter(link_, TextWriter::Mode::truncate).isOpen());
}

}  // namespace
