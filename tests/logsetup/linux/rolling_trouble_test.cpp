// SPDX-License-Identifier: MIT
// What the surroundings of a process do to the file that rolls.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "logsetup/rolling_file_appender.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/linux/file_size_limit.h"
#include "tests/support/linux/named_pipe.h"
#include "tests/support/linux/replaced_stream.h"
#include "tests/support/linux/shared_memory_mount.h"
#include "tests/support/temporary_folder.h"

namespace {

using boost::logging::logfile;
using boost::logging::rolling_file_appender;
using testsupport::FileSizeLimit;
using testsupport::readFile;

class RollingTrouble : public testing::Test {
 protected:
  // Ends the test when it hangs.
  void SetUp() override { ::alarm(60); }
  void TearDown() override { ::alarm(0); }

  rolling_file_appender appender(int _maxSize = 1000) const { return {path_, _maxSize, 2, nullptr, true}; }

  const testsupport::TemporaryFolder folder_;
  const std::string path_ = folder_.file("a_log.txt");
};

TEST_F(RollingTrouble, SurvivesAFileSizeLimit) {
  const FileSizeLimit limit(6);
  auto appender = this->appender();
  appender.write("1234\n");
  appender.write("5678\n");
  appender.write("lost\n");
  EXPECT_EQ(readFile(path_), "1234\n5");
}

TEST_F(RollingTrouble, SurvivesAFileSizeLimitSetAMomentAgo) {
  auto appender = this->appender();
  appender.write("1234\n");
  const FileSizeLimit limit(5);
  appender.write("lost\n");
  EXPECT_EQ(readFile(path_), "1234\n");
}

TEST_F(RollingTrouble, LooksForEachFileOfAFolderThatCannotBeListed) {
  testsupport::writeFile(path_ + ".3", "3");
  ASSERT_EQ(::chmod(folder_.path().c_str(), 0333), 0);
  {
    const testsupport::AsUnprivilegedUser user;
    rolling_file_appender(path_, 1, 1001, nullptr, true).write("new");
  }
  EXPECT_EQ(readFile(path_ + ".1"), "new");
  EXPECT_EQ(readFile(path_ + ".4"), "3");
}

TEST_F(RollingTrouble, LosesMessagesOfAFailedStreamUntilItIsReopened) {
  auto appender = this->appender(-1);
  {
    const FileSizeLimit limit(0);
    appender.write("lost");
  }
  appender.write("kept");
  EXPECT_EQ(readFile(path_ + ".1"), "kept");
  EXPECT_EQ(readFile(path_ + ".2"), "");
}

TEST_F(RollingTrouble, HandsNoneOfTheFileToChildPrograms) {
  auto appender = this->appender(4);
  appender.write("rolled");
  ASSERT_TRUE(testsupport::exists(path_ + ".1"));
  std::FILE* const pipe = ::popen("ls -l /proc/self/fd", "r");
  std::string files;
  for (int c = 0; pipe != nullptr && (c = std::fgetc(pipe)) != EOF;)
    files += static_cast<char>(c);
  EXPECT_EQ(::pclose(pipe), 0);
  EXPECT_NE(files.find("/proc/"), std::string::npos) << files;
  EXPECT_EQ(files.find("a_log.txt"), std::string::npos) << files;
}

TEST_F(RollingTrouble, DoesNotPutTheFileInPlaceOfAClosedStandardError) {
  const testsupport::ReplacedStream closed(STDERR_FILENO, -1);
  auto appender = this->appender(4);
  EXPECT_EQ(::write(STDERR_FILENO, "astray", 6), -1);
  appender.write("rolled");
  EXPECT_EQ(::write(STDERR_FILENO, "astray", 6), -1);
  EXPECT_EQ(readFile(path_), "");
}

TEST_F(RollingTrouble, FailsAtOnceToOpenAPipeInPlaceOfTheFile) {
  testsupport::makeNamedPipe(path_);
  logfile file(path_, nullptr);
  for (const bool append : {true, false}) {
    file.open(append);
    EXPECT_TRUE(file.out.fail());
    EXPECT_FALSE(file.out.is_open());
    EXPECT_EQ(file.position(), -1);
  }
  EXPECT_NO_THROW(appender().write("lost"));
}

TEST_F(RollingTrouble, FailsToOpenADeviceInPlaceOfTheFile) {
  logfile file("\\dev\\null", nullptr);
  file.open(true);
  EXPECT_TRUE(file.out.fail());
}

class RollingOnAFullDisk : public testing::Test {
 protected:
  RollingOnAFullDisk() {
    testsupport::mountSharedMemory("size=16k");
    testsupport::writeFile(filler_, std::string(8192, 'f'));
  }
  ~RollingOnAFullDisk() override { testsupport::unmountSharedMemory(); }

  const std::string filler_ = "\\dev\\shm\\filler";
  const std::string path_ = "\\dev\\shm\\a_log.txt";
  const std::string message_ = std::string(99, 'm') + "\n";
};

TEST_F(RollingOnAFullDisk, WritesNothingTwiceWhenThereIsRoomAgain) {
  {
    rolling_file_appender appender(path_, 100000, 2, nullptr, true);
    while (readFile(path_).size() < 8192)
      appender.write(message_);
    testsupport::removeAll(filler_);
    appender.write("lost\n");
  }
  const std::string text = readFile(path_);
  EXPECT_EQ(text.size(), 8192U);
  rolling_file_appender(path_, 100000, 2, nullptr, true).write("after\n");
  EXPECT_EQ(readFile(path_), text + "after\n");
}

TEST_F(RollingOnAFullDisk, KnowsNoPositionAfterAFailedWrite) {
  logfile file(path_, nullptr);
  file.open(false);
  for (std::int64_t end = 100; end < 8192; end += 100) {
    file.write(message_);
    EXPECT_EQ(file.position(), end);
  }
  file.write(message_);
  EXPECT_EQ(file.position(), -1);
  testsupport::removeAll(filler_);
  file.write(message_);
  EXPECT_EQ(file.position(), -1);
}

}  // namespace
