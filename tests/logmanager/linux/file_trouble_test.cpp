// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <thread>

#include "boost/logging/logging.hpp"
#include "tests/logmanager/timed_write.h"
#include "tests/support/linux/file_size_limit.h"
#include "tests/support/linux/open_number.h"
#include "tests/support/linux/shared_memory_mount.h"
#include "tests/support/temporary_folder.h"

namespace {

using boost::logging::write_to_file;
using testsupport::readFile;
using testsupport::removeAll;
using testsupport::writeAt;

constexpr char lostTwo[] = "2 messages were lost: this file could not be written, error ";

std::uint64_t lostOf(const std::string& _path) {
  std::uint64_t lost = 0;
  boost::logging::list_files([&](const boost::logging::file_state& _state) {
    if (_state.path == _path) lost = _state.lost;
  });
  return lost;
}

TEST(FileTrouble, LeavesOneFragmentOnAFullDiskAndEndsItOnceThereIsRoom) {
  testsupport::mountSharedMemory("size=16k");
  const std::string path = "\\dev\\shm\\full.log";
  const std::string filler = "\\dev\\shm\\filler";
  testsupport::writeFile(filler, std::string(8192, 'f'));
  const write_to_file appender(path, false);
  const std::string message = std::string(4999, 'm') + "\n";
  appender("App", message);
  appender("App", message);
  appender("App", message);
  EXPECT_EQ(readFile(path), message + message.substr(0, 8192 - 5000));
  removeAll(filler);
  appender("App", "after\n");
  appender("App", "next\n");
  EXPECT_EQ(readFile(path), message + message.substr(0, 8192 - 5000) + "\n" + lostTwo + "112\nafter\nnext\n");
  testsupport::unmountSharedMemory();
}

TEST(FileTrouble, CountsEveryMessageThatThreadSafeModeLosesOnAFullDisk) {
  testsupport::mountSharedMemory("size=16k");
  const std::string path = "\\dev\\shm\\full.log";
  const std::string filler = "\\dev\\shm\\filler";
  testsupport::writeFile(filler, std::string(8192, 'f'));
  const std::string message = std::string(99, 'm') + "\n";
  {
    // With such an interval nearly all messages are of one batch.
    std::optional<boost::logging::ts_appender> appender(std::in_place, write_to_file(path, false), 500);
    for (int i = 0; i < 692; ++i)
      (*appender)("App", message);
    while (lostOf(path) < 611)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    removeAll(filler);
    (*appender)("App", "after\n");
    while (readFile(path).find("after\n") == std::string::npos)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  std::string written;
  for (int i = 0; i < 81; ++i)
    written += message;
  EXPECT_EQ(readFile(path), written + message.substr(0, 92) +
                                "\n611 messages were lost: this file could not be written, error 112\nafter\n");
  testsupport::unmountSharedMemory();
}

TEST(FileTrouble, ReportsAFileSizeLimitOnceItIsLifted) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("limited.log");
  const write_to_file appender(path, false);
  {
    const testsupport::FileSizeLimit limit(20);
    appender("App", "0123456789\n");
    appender("App", "0123456789\n");
    appender("App", "lost\n");
    EXPECT_EQ(readFile(path), "0123456789\n012345678");
  }
  appender("App", "after\n");
  EXPECT_EQ(readFile(path), std::string("0123456789\n012345678\n") + lostTwo + "27\nafter\n");
}

TEST(FileTrouble, EndsTheFragmentOfAnotherProcessBeforeItsOwnReport) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("limited.log");
  const write_to_file one(path, false);
  const write_to_file other(path, false);
  {
    const testsupport::FileSizeLimit limit(12);
    one("App", "one\n");
    other("App", "other\n");
    one("App", "0123456789\n");
    other("App", "lost\n");
  }
  other("App", "after\n");
  EXPECT_EQ(readFile(path), "one\nother\n01\n1 message was lost: this file could not be written, error 27\nafter\n");
}

TEST(FileTrouble, EndsWithinASecondAfterTheApplicationHasClosedTheFile) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("app.log");
  const write_to_file appender(path, true);
  writeAt(appender, 0, "1\n");
  ASSERT_EQ(::close(testsupport::numberOf(path)), 0);
  writeAt(appender, 1, "lost\n");
  writeAt(appender, 999, "2\n");
  EXPECT_EQ(readFile(path), "1\n1 message was lost: this file could not be written, error 9\n2\n");
}

TEST(FileTrouble, SpoilsNoFileOfTheApplicationThatHasTheNumberOfTheLogNow) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("app.log");
  const std::string foreignPath = folder.file("app.db");
  const write_to_file appender(path, true);
  writeAt(appender, 0, "1\n");
  const testsupport::ForeignFile foreign(testsupport::numberOf(path), foreignPath);
  writeAt(appender, 999, "2\n");
  writeAt(appender, 1000, "3\n");
  EXPECT_EQ(readFile(path), "1\n2\n3\n");
  EXPECT_EQ(readFile(foreignPath), "");
  EXPECT_TRUE(foreign.isOpen());
}

TEST(FileTrouble, ContinuesAReplacedFileWithoutEmptyingIt) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("app.log");
  const write_to_file appender(path, true);
  writeAt(appender, 0, "1\n");
  testsupport::writeFile(folder.file("other"), "other\n");
  ASSERT_EQ(std::rename((folder.path() + "/other").c_str(), (folder.path() + "/app.log").c_str()), 0);
  writeAt(appender, 999, "2\n");
  EXPECT_EQ(readFile(path), "other\n2\n");
}

}  // namespace
