// SPDX-License-Identifier: MIT
#include "logsetup/rolling_file_appender.h"

#include <gtest/gtest.h>

#include <boost/filesystem/exception.hpp>
#include <limits>

#include "tests/support/as_unprivileged_user.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/virtual_slot.h"

namespace {

using boost::logging::rolling_file_appender;
using testsupport::exists;
using testsupport::makeFolders;
using testsupport::namesIn;
using testsupport::readFile;
using testsupport::writeFile;

using Names = std::vector<std::string>;

class RollingFileAppender : public testing::Test {
 protected:
  rolling_file_appender appender(int _maxSize, int _fileCount) const {
    return {name(), _maxSize, _fileCount, nullptr, true};
  }
  std::string name() const { return folder_.file("a_log.txt"); }
  std::string backup(int _number) const { return name() + "." + std::to_string(_number); }
  Names names() const { return namesIn(folder_.path()); }

  testsupport::TemporaryFolder folder_;
};

TEST_F(RollingFileAppender, NeverRollsWhenTheMaximumSizeIsZero) {
  auto appender = this->appender(0, 4);
  for (int i = 0; i < 100; ++i) {
    appender.write("0123456789");
  }
  EXPECT_EQ(readFile(name()).size(), 1000U);
  EXPECT_EQ(names(), Names{"a_log.txt"});
}

TEST_F(RollingFileAppender, RollsAfterEveryMessageWhenTheMaximumSizeIsMinusOne) {
  auto appender = this->appender(-1, 2);
  appender.write("one");
  appender.write("two");
  appender.write("three");
  EXPECT_EQ(readFile(name()), "");
  EXPECT_EQ(readFile(backup(1)), "three");
  EXPECT_EQ(readFile(backup(2)), "two");
  EXPECT_FALSE(exists(backup(3)));
}

TEST_F(RollingFileAppender, RollsAfterAnEmptyMessageWhenTheMaximumSizeIsMinusOne) {
  auto appender = this->appender(-1, 1);
  appender.write("");
  EXPECT_EQ(names(), (Names{"a_log.txt", "a_log.txt.1"}));
}

TEST_F(RollingFileAppender, EmptiesTheFileAtItsSizeWithoutBackups) {
  for (const int count : {0, -1, std::numeric_limits<int>::min()}) {
    auto appender = this->appender(10, count);
    appender.write("0123456789");
    EXPECT_EQ(readFile(name()), "") << count;
    appender.write("next");
    EXPECT_EQ(readFile(name()), "next") << count;
    appender.write("0123456789");
    EXPECT_EQ(names(), Names{"a_log.txt"}) << count;
  }
}

TEST_F(RollingFileAppender, RenamesOnlyTheCurrentFileAtTheFirstRoll) {
  auto appender = this->appender(5, 4);
  appender.write("12345");
  EXPECT_EQ(names(), (Names{"a_log.txt", "a_log.txt.1"}));
  EXPECT_EQ(readFile(backup(1)), "12345");
  EXPECT_EQ(readFile(name()), "");
}

TEST_F(RollingFileAppender, RemovesAStaleLastBackupOnlyWhenAnotherTakesItsPlace) {
  writeFile(backup(4), "stale");
  auto appender = this->appender(1, 4);
  for (const char* message : {"1", "2", "3"}) {
    appender.write(message);
    EXPECT_EQ(readFile(backup(4)), "stale");
  }
  appender.write("4");
  EXPECT_EQ(readFile(backup(4)), "1");
  EXPECT_EQ(readFile(backup(3)), "2");
}

TEST_F(RollingFileAppender, LeavesBackupsBeyondTheCount) {
  writeFile(backup(3), "older");
  auto appender = this->appender(1, 2);
  for (const char* message : {"1", "2", "3"}) {
    appender.write(message);
  }
  EXPECT_EQ(readFile(backup(3)), "older");
  EXPECT_EQ(readFile(backup(2)), "2");
}

TEST_F(RollingFileAppender, CountsOnToNumbersOfTwoDigits) {
  auto appender = this->appender(1, 12);
  for (char message = 'a'; message <= 'z'; ++message) {
    appender.write(std::string(1, message));
  }
  EXPECT_EQ(names().size(), 13U);
  EXPECT_EQ(readFile(backup(9)), "r");
  EXPECT_EQ(readFile(backup(10)), "q");
  EXPECT_EQ(readFile(backup(12)), "o");
}

// Looking for each of them would take an hour.
TEST_F(RollingFileAppender, MovesTheFilesThatExistOfTwoThousandMillions) {
  constexpr int last = std::numeric_limits<int>::max();
  for (const int number : {7, last - 1, last}) {
    writeFile(backup(number), std::to_string(number));
  }
  const Names strangers{"a_log.txt.+3", "a_log.txt.-3",          "a_log.txt.03", "a_log.txt.0",
                        "a_log.txt.3x", "a_log.txt.99999999999", "a_log.txt_3",  "b"};
  for (const std::string& stranger : strangers) {
    writeFile(folder_.file(stranger), stranger);
  }
  appender(1, last).write("new");
  EXPECT_EQ(readFile(backup(1)), "new");
  EXPECT_EQ(readFile(backup(8)), "7");
  EXPECT_EQ(readFile(backup(last)), std::to_string(last - 1));
  EXPECT_EQ(names().size(), 4 + strangers.size());
  for (const std::string& stranger : strangers) {
    EXPECT_EQ(readFile(folder_.file(stranger)), stranger);
  }
}

TEST_F(RollingFileAppender, LeavesTheMessageThatCrossesTheSizeInTheOldFile) {
  auto appender = this->appender(10, 1);
  appender.write("012345678");
  EXPECT_FALSE(exists(backup(1)));
  appender.write("and the rest");
  EXPECT_EQ(readFile(backup(1)), "012345678and the rest");
  EXPECT_EQ(readFile(name()), "");
}

TEST_F(RollingFileAppender, CountsAnExistingFileAtTheFirstWrite) {
  writeFile(name(), "123456789");
  auto appender = this->appender(10, 1);
  appender.write("0");
  EXPECT_EQ(readFile(backup(1)), "1234567890");
}

TEST_F(RollingFileAppender, StartsAtTheEndOfTheFileEvenBeforeItWrites) {
  writeFile(name(), "0123456789");
  auto appender = this->appender(10, 1);
  EXPECT_EQ(readFile(name()), "0123456789");
  appender.write("");
  EXPECT_EQ(readFile(backup(1)), "0123456789");
}

TEST_F(RollingFileAppender, EmptiesTheFileWithoutABackupWhenAskedToTruncate) {
  writeFile(name(), "0123456789");
  rolling_file_appender(name(), 10, 1, nullptr, false).write("new");
  EXPECT_EQ(readFile(name()), "new");
  EXPECT_EQ(names(), Names{"a_log.txt"});
}

TEST_F(RollingFileAppender, SharesStreamAndSizeAmongCopies) {
  auto first = appender(6, 2);
  auto second = first;
  first.write("123");
  second.write("456");
  EXPECT_EQ(readFile(backup(1)), "123456");
  first.write("789");
  EXPECT_EQ(readFile(name()), "789");
}

TEST_F(RollingFileAppender, PassesTheCurrentNameToTheVirtualRoll) {
  struct Recording : rolling_file_appender {
    using rolling_file_appender::rolling_file_appender;
    void roll(const std::string& _name) override { rolled.push_back(_name); }
    Names rolled;
  };
  Recording appender(
      name(), 3, 1, [](const std::string& _name) { return _name + "-today"; }, true);
  appender("log", "123");
  EXPECT_EQ(appender.rolled, Names{name() + "-today"});
  EXPECT_EQ(names(), Names{"a_log.txt-today"});
  EXPECT_EQ(readFile(name() + "-today"), "");
}

TEST_F(RollingFileAppender, AppendsBesideAnotherAppenderOnTheFile) {
  auto first = appender(100, 1);
  auto second = appender(100, 1);
  first.write("1");
  second.write("2");
  first.write("3");
  EXPECT_EQ(readFile(name()), "123");
}

TEST_F(RollingFileAppender, KeepsItsVirtualOperationsInOrderAfterTheDestructor) {
  EXPECT_EQ(testsupport::virtualSlot(&boost::logging::file_appender::write), 2U);
  EXPECT_EQ(testsupport::virtualSlot(&rolling_file_appender::write), 2U);
  EXPECT_EQ(testsupport::virtualSlot(&rolling_file_appender::roll), 3U);
}

// Failures. Each is one of the file system, not of a stand-in.

TEST_F(RollingFileAppender, ThrowsAFailedRemoveAndClosesTheFileForGood) {
  makeFolders(backup(1) + "\\occupied");
  auto appender = this->appender(4, 1);
  EXPECT_THROW(appender.write("1234"), boost::filesystem::filesystem_error);
  testsupport::removeAll(backup(1));
  EXPECT_NO_THROW(appender.write("lost"));
  EXPECT_NO_THROW(appender.write("lost"));
  EXPECT_EQ(readFile(name()), "1234");
  EXPECT_EQ(names(), Names{"a_log.txt"});
}

TEST_F(RollingFileAppender, StopsTheRollAtAFailedRemove) {
  makeFolders(backup(2) + "\\occupied");
  writeFile(backup(1), "older");
  writeFile(backup(3), "oldest");
  auto appender = this->appender(4, 4);
  EXPECT_NO_THROW(appender.write("1234"));
  EXPECT_EQ(readFile(backup(4)), "oldest");
  EXPECT_EQ(readFile(backup(2)), "older");
  EXPECT_TRUE(exists(backup(3) + "\\occupied"));
  EXPECT_NO_THROW(appender.write("5678"));
  EXPECT_TRUE(exists(backup(4) + "\\occupied"));
  EXPECT_THROW(appender.write("last"), boost::filesystem::filesystem_error);
  EXPECT_EQ(readFile(backup(3)), "older");
  EXPECT_EQ(readFile(name()), "last");
}

TEST_F(RollingFileAppender, ThrowsAFailedRenameAndClosesTheFileForGood) {
  makeFolders(name() + "-folder");
  const std::string inside = name() + "-folder\\a_log.txt";
  writeFile(inside, "");
  rolling_file_appender appender(inside, 4, 1, nullptr, true);
  testsupport::denyWriting(name() + "-folder");
  const testsupport::AsUnprivilegedUser user;
  EXPECT_THROW(appender.write("1234"), boost::filesystem::filesystem_error);
  EXPECT_NO_THROW(appender.write("lost"));
  EXPECT_EQ(readFile(inside), "1234");
}

TEST_F(RollingFileAppender, LosesEverythingAndNeverRollsWhenItCannotOpenTheFile) {
  writeFile(name() + ".1", "backup");
  const std::string inside = name() + "-folder\\a_log.txt";
  rolling_file_appender appender(inside, 1, 2, nullptr, true);
  EXPECT_NO_THROW(appender.write("lost"));
  makeFolders(name() + "-folder");
  EXPECT_NO_THROW(appender.write("lost"));
  EXPECT_TRUE(namesIn(name() + "-folder").empty());
}

TEST_F(RollingFileAppender, RetriesAFailedRollAtEveryMessageWhenTheSizeIsNegative) {
  makeFolders(backup(1) + "\\occupied");
  auto appender = this->appender(-1, 1);
  EXPECT_THROW(appender.write("1"), boost::filesystem::filesystem_error);
  EXPECT_THROW(appender.write("lost"), boost::filesystem::filesystem_error);
  testsupport::removeAll(backup(1));
  EXPECT_NO_THROW(appender.write("lost"));
  EXPECT_EQ(readFile(backup(1)), "1");
  appender.write("2");
  EXPECT_EQ(readFile(backup(1)), "2");
}

}  // namespace
