// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "boost/logging/logging.hpp"
#include "platform/native_path.h"
#include "tests/logmanager/timed_write.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/fault_plan.h"
#include "tests/support/system_path.h"
#include "tests/support/temporary_folder.h"

namespace {

using boost::logging::write_to_file;
using platform::Call;
using testsupport::exists;
using testsupport::FaultPlan;
using testsupport::readFile;
using testsupport::removeAll;
using testsupport::TemporaryFolder;
using testsupport::writeAt;
using testsupport::writeFile;

constexpr char lostOne[] = "1 message was lost: this file could not be written, error ";

class WriteToFile : public testing::Test {
 protected:
  /// The text of the file, with line ends of LF.
  std::string text() const { return testsupport::replaced(readFile(path_), "\r\n", "\n"); }

  TemporaryFolder folder_;
  const std::string path_ = folder_.file("common.log");
};

TEST_F(WriteToFile, OpensTheFileAtItsFirstMessage) {
  const write_to_file appender(path_, true);
  EXPECT_FALSE(exists(path_));
  appender("App", "text\n");
  EXPECT_EQ(text(), "text\n");
}

TEST_F(WriteToFile, ContinuesAnExistingFile) {
  writeFile(path_, "before\n");
  write_to_file(path_, false)("App", "text\n");
  EXPECT_EQ(text(), "before\ntext\n");
}

TEST_F(WriteToFile, EmptiesTheFileOnceWhenAskedToOverwrite) {
  writeFile(path_, "before\n");
  const write_to_file appender(path_, true);
  EXPECT_EQ(text(), "before\n");
  appender("App", "1\n");
  const write_to_file copy = appender;
  copy("App", "2\n");
  removeAll(path_);
  writeFile(path_, "other\n");
  writeAt(appender, 3600000, "3\n");
  EXPECT_EQ(text(), "other\n3\n");
}

TEST_F(WriteToFile, AcceptsBothSeparators) {
  write_to_file(platform::nativePath(path_), false)("App", "1\n");
  write_to_file(path_, false)("App", "2\n");
  EXPECT_EQ(text(), "1\n2\n");
}

TEST_F(WriteToFile, SharesOneOpenFileAmongCopies) {
  const write_to_file appender(path_, false);
  const write_to_file copy = appender;
  const FaultPlan opens(Call::openForAppending, 1000, 5);
  appender("App", "1\n");
  copy("App", "2\n");
  EXPECT_EQ(opens.calls(), 1);
  EXPECT_EQ(text(), "1\n2\n");
}

TEST_F(WriteToFile, RecreatesARemovedFileWithinASecond) {
  const write_to_file appender(path_, false);
  writeAt(appender, 0, "1\n");
  removeAll(path_);
  writeAt(appender, 999, "2\n");
  EXPECT_EQ(text(), "2\n");
}

TEST_F(WriteToFile, RecreatesARemovedFolderWithinASecond) {
  const std::string deepPath = folder_.file("a\\b\\c.log");
  const write_to_file appender(deepPath, false);
  writeAt(appender, 0, "1\n");
  removeAll(folder_.file("a"));
  writeAt(appender, 999, "2\n");
  EXPECT_EQ(testsupport::replaced(readFile(deepPath), "\r\n", "\n"), "2\n");
}

TEST_F(WriteToFile, RecreatesARenamedFileWithinASecond) {
  const write_to_file appender(path_, true);
  writeAt(appender, 0, "1\n");
  std::filesystem::rename(testsupport::systemPath(path_), testsupport::systemPath(path_ + ".1"));
  writeAt(appender, 999, "2\n");
  EXPECT_EQ(testsupport::replaced(readFile(path_ + ".1"), "\r\n", "\n"), "1\n");
  EXPECT_EQ(text(), "2\n");
}

TEST_F(WriteToFile, WaitsUntilAFolderInItsPlaceIsGone) {
  testsupport::makeFolders(path_);
  const write_to_file appender(path_, false);
  appender("App", "1\n");
  appender("App", "2\n");
  removeAll(path_);
  appender("App", "3\n");
  EXPECT_EQ(text().find("2 messages were lost: this file could not be written, error "), 0U);
  EXPECT_EQ(text().substr(text().find('\n')), "\n3\n");
}

TEST_F(WriteToFile, ChecksTheFileAgainAfterTheClockGoesBack) {
  const write_to_file appender(path_, false);
  writeAt(appender, 0, "1\n");
  removeAll(path_);
  writeAt(appender, -1, "2\n");
  EXPECT_EQ(text(), "2\n");
}

TEST_F(WriteToFile, DoesNotCheckTheFileAtEveryMessage) {
  const write_to_file appender(path_, false);
  writeAt(appender, 0, "1\n");
  const FaultPlan looks(Call::statusQuery, 1000, 5);
  for (int i = 0; i < 400; ++i)
    writeAt(appender, i, "2\n");
  EXPECT_EQ(looks.calls(), 0);
}

TEST_F(WriteToFile, EndsAFragmentLeftByAKilledProcess) {
  writeFile(path_, "whole\nfragm");
  const write_to_file appender(path_, false);
  appender("App", "1\n");
  appender("App", "2\n");
  EXPECT_EQ(text(), "whole\nfragm\n1\n2\n");
}

TEST_F(WriteToFile, ReportsInOneLineWhatAFailedWriteLost) {
  const write_to_file appender(path_, false);
  appender("App", "1\n");
  {
    const FaultPlan plan(Call::append, 1, platform::errorDiskFull, 3);
    for (const char* const message : {"2\n", "3\n", "4\n"})
      appender("App", message);
    appender("App", "5\n");
  }
  appender("App", "6\n");
  EXPECT_EQ(text(), "1\n3 messages were lost: this file could not be written, error 112\n5\n6\n");
}

TEST_F(WriteToFile, TellsOnlyItsOwnLossesInTheFile) {
  {
    const FaultPlan plan(Call::append, 1, platform::errorDiskFull, 1);
    write_to_file(path_, false)("App", "1\n");
  }
  const write_to_file appender(path_, false);
  {
    const FaultPlan plan(Call::openForAppending, 1, platform::errorAccessDenied);
    appender("App", "2\n");
  }
  appender("App", "3\n");
  EXPECT_EQ(text(), "1 message was lost: this file could not be written, error 5\n3\n");
}

TEST_F(WriteToFile, ReportsLostMessagesOnStandardErrorOncePerMinuteAndFile) {
  const std::string otherPath = folder_.file("other.log");
  testing::internal::CaptureStderr();
  {
    const FaultPlan writing(Call::append, 1, platform::errorDiskFull, 100);
    const write_to_file sameFile(path_, false);
    const write_to_file appender(path_, false);
    for (int i = 0; i < 10; ++i) {
      appender("App", "message\n");
      sameFile("App", "message\n");
    }
    write_to_file(otherPath, false)("App", "message\n");
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "boost::logging: 1 message could not be written to " + path_ + ", error 112\n" +
                "boost::logging: 1 message could not be written to " + otherPath + ", error 112\n");
}

TEST_F(WriteToFile, ReportsAnUnopenableFileOnStandardError) {
  testing::internal::CaptureStderr();
  const FaultPlan opening(Call::openForAppending, 1, platform::errorAccessDenied);
  write_to_file(path_, false)("App", "message\n");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "boost::logging: 1 message could not be written to " + path_ + ", error 5\n");
}

TEST_F(WriteToFile, RetriesAFailedOpenWithTheNextMessage) {
  const write_to_file appender(path_, false);
  {
    const FaultPlan plan(Call::openForAppending, 1, platform::errorAccessDenied);
    appender("App", "1\n");
    EXPECT_FALSE(exists(path_));
    appender("App", "2\n");
  }
  EXPECT_EQ(text(), lostOne + std::string("5\n2\n"));
}

TEST_F(WriteToFile, WritesAsSoonAsTheUserMayWrite) {
  testsupport::makeFolders(folder_.file("closed"));
  testsupport::denyWriting(folder_.file("closed"));
  const std::string closedPath = folder_.file("closed\\c.log");
  const write_to_file appender(closedPath, false);
  {
    const testsupport::AsUnprivilegedUser user;
    appender("App", "1\n");
    EXPECT_FALSE(exists(closedPath));
  }
  removeAll(folder_.file("closed"));
  appender("App", "2\n");
  EXPECT_EQ(testsupport::replaced(readFile(closedPath), "\r\n", "\n"), lostOne + std::string("5\n2\n"));
}

TEST_F(WriteToFile, KeepsLinesOfSeveralThreadsWhole) {
  constexpr int lineCount = 2000;
  const write_to_file appender(path_, false);
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 4; ++thread) {
    threads.emplace_back([&appender, thread] {
      for (int line = 0; line < lineCount; ++line)
        appender("App", std::string(50, static_cast<char>('a' + thread)) + "\n");
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  std::string all = text();
  for (int thread = 0; thread < 4; ++thread) {
    all = testsupport::replaced(all, std::string(50, static_cast<char>('a' + thread)) + "\n", "+");
  }
  EXPECT_EQ(all, std::string(4 * lineCount, '+'));
}

TEST_F(WriteToFile, SurvivesRemovalsWhileThreadsWrite) {
  const write_to_file appender(path_, false);
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 4; ++thread) {
    threads.emplace_back([&appender] {
      for (int line = 0; line < 2000; ++line)
        writeAt(appender, line * 1000, "0123456789\n");
    });
  }
  for (int i = 0; i < 50; ++i)
    removeAll(path_);
  for (std::thread& thread : threads)
    thread.join();
  writeAt(appender, 3600000, "end\n");
  const std::string all = testsupport::replaced(text(), "0123456789\n", "");
  EXPECT_EQ(all, "end\n");
}

}  // namespace
