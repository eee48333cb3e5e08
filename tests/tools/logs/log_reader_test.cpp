// SPDX-License-Identifier: MIT
#include "tools/logs/log_reader.h"

#include <gtest/gtest.h>

#include <boost/filesystem/operations.hpp>
#include <fstream>
#include <string>
#include <vector>

#include "platform/native_path.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::nativePath;
using qmrkctl::BackwardScan;
using qmrkctl::MessageFilter;
using qmrkctl::MessageQuery;
using testsupport::writeFile;
using toolsystem::OpenResult;
using Lines = std::vector<std::string>;

// A message of a class, in so many seconds after ten.
std::string message(const std::string& _class, int _second, const std::string& _text) {
  return "[" + _class + "] 20261121 10:00:" + (_second < 10 ? "0" : "") + std::to_string(_second) + ".000 " + _text;
}

class LogReader : public testing::Test {
 protected:
  std::string path() const { return folder_.file("x_log.txt"); }

  void append(const std::string& _bytes) const {
    std::ofstream(nativePath(path()), std::ios::binary | std::ios::app) << _bytes;
  }

  void rename(const std::string& _from, const std::string& _to) const {
    boost::filesystem::rename(nativePath(folder_.file(_from)), nativePath(folder_.file(_to)));
  }

  // What can be read now, whole lines only.
  static Lines linesOf(qmrkctl::LogReader& _reader) {
    Lines lines;
    for (std::string line; _reader.next(line);)
      lines.push_back(line);
    return lines;
  }

  static Lines refreshed(qmrkctl::LogReader& _reader) {
    _reader.refresh();
    return linesOf(_reader);
  }

  Lines last(std::uint64_t _number, const MessageQuery& _query = {}) const {
    qmrkctl::LogReader reader(path());
    reader.begin(_query, _number);
    MessageFilter filter(_query);
    Lines lines;
    for (const std::string& line : linesOf(reader)) {
      if (filter.accepts(line)) lines.push_back(line);
    }
    // The first message may begin before the lines that are wanted.
    if (lines.size() > _number) lines.erase(lines.begin(), lines.end() - static_cast<std::ptrdiff_t>(_number));
    return lines;
  }

  testsupport::TemporaryFolder folder_;
};

// ---- The last lines ----

TEST_F(LogReader, StartsAtTheLastLines) {
  writeFile(path(), "1\n2\n3\n4\n");
  EXPECT_EQ(last(2), (Lines{"3", "4"}));
  EXPECT_EQ(last(4), (Lines{"1", "2", "3", "4"}));
  EXPECT_EQ(last(9), (Lines{"1", "2", "3", "4"}));
  EXPECT_EQ(last(0), Lines{});
}

TEST_F(LogReader, CountsEmptyLines) {
  writeFile(path(), "\n\n\n1\n\n");
  EXPECT_EQ(last(2), (Lines{"1", ""}));
  EXPECT_EQ(last(5), (Lines{"", "", "", "1", ""}));
}

TEST_F(LogReader, ReadsTheBackupsFirst) {
  writeFile(folder_.file("x_log.txt.2"), "1\n2\n");
  writeFile(folder_.file("x_log.txt.1"), "3\n");
  writeFile(path(), "4\n5\n");
  EXPECT_EQ(last(BackwardScan::allLines), (Lines{"1", "2", "3", "4", "5"}));
  EXPECT_EQ(last(4), (Lines{"2", "3", "4", "5"}));
  EXPECT_EQ(last(1), Lines{"5"});
}

TEST_F(LogReader, KeepsTheFragmentOfABackupAndOfTheLog) {
  writeFile(folder_.file("x_log.txt.1"), "1\nfragment");
  writeFile(path(), "2\nend");
  qmrkctl::LogReader reader(path());
  EXPECT_EQ(reader.begin({}, 4), OpenResult::opened);
  EXPECT_EQ(linesOf(reader), (Lines{"1", "fragment", "2"}));
  std::string line;
  EXPECT_FALSE(reader.takeFragment(line, 1));
  EXPECT_TRUE(reader.takeFragment(line, 0));
  EXPECT_EQ(line, "end");
  EXPECT_FALSE(reader.takeFragment(line, 0));
}

TEST_F(LogReader, FindsTheLastMessagesOfAClassFarBack) {
  std::string text = message("A.error", 1, "first") + "\nmore of it\n" + message("A.error", 2, "second") + "\n";
  const std::string other = message("B", 3, std::string(100, 'x')) + "\n";
  // Further back than any block that is read at once.
  for (int i = 0; i < 9000; ++i)
    text += other;
  writeFile(path(), text);
  EXPECT_EQ(last(1, {{"*.error"}, {}}), Lines{message("A.error", 2, "second")});
  EXPECT_EQ(last(3, {{"*.error"}, {}}),
            (Lines{message("A.error", 1, "first"), "more of it", message("A.error", 2, "second")}));
  EXPECT_EQ(last(5, {{"C"}, {}}), Lines{});
}

TEST_F(LogReader, FindsALineAtEveryDistanceFromTheEndOfABlock) {
  // The class of the line is cut by the blocks in all ways.
  constexpr std::size_t block = std::size_t{256} * 1024;
  for (std::size_t shift = 0; shift < 60; ++shift) {
    const std::string wanted = message("A.error", 1, "wanted");
    writeFile(path(), "before\n" + wanted + "\n" + message("B", 2, std::string(block - 100 + shift, 'x')) + "\n");
    ASSERT_EQ(last(1, {{"A"}, {}}), Lines{wanted}) << shift;
  }
}

TEST_F(LogReader, StopsAtMessagesThatAreTooOld) {
  writeFile(folder_.file("x_log.txt.1"), message("A", 1, "old") + "\n");
  writeFile(path(), message("A", 29, "before") + "\n" + message("A", 30, "since") + "\nmore\n");
  MessageQuery query;
  query.since = qmrkctl::civilTime({2026, 11, 21, 10, 0, 30, 0});
  EXPECT_EQ(last(BackwardScan::allLines, query), (Lines{message("A", 30, "since"), "more"}));
}

TEST_F(LogReader, BeginsWithTheMessageToWhichTheFirstLineBelongs) {
  writeFile(path(), message("A", 1, "x") + "\n" + message("B", 2, "y") + "\nmore\nlast\n");
  qmrkctl::LogReader reader(path());
  reader.begin({}, 1);
  EXPECT_EQ(linesOf(reader), (Lines{message("B", 2, "y"), "more", "last"}));
}

TEST_F(LogReader, GivesUpTheSearchForAMessageWhereThereIsNone) {
  std::string text;
  for (int i = 0; i < 3000; ++i)
    text += std::to_string(i) + "\n";
  writeFile(path(), text);
  qmrkctl::LogReader reader(path());
  reader.begin({}, 1);
  EXPECT_EQ(linesOf(reader).size(), 1000U);
}

TEST_F(LogReader, ReadsOnlyTheEndOfAHugeFile) {
  append("begin\n");
  boost::filesystem::resize_file(nativePath(path()), std::uintmax_t{8} * 1024 * 1024 * 1024);
  append("\n" + message("A", 1, "last") + "\n");
  EXPECT_EQ(last(1), Lines{message("A", 1, "last")});
}

TEST_F(LogReader, SaysWhyItFindsNothing) {
  qmrkctl::LogReader missing(path());
  EXPECT_EQ(missing.begin({}, 1), OpenResult::missing);
  EXPECT_FALSE(missing.isOpen());
  testsupport::makeFolders(path());
  qmrkctl::LogReader folder(path());
  EXPECT_EQ(folder.begin({}, 1), OpenResult::unreadable);
  EXPECT_FALSE(folder.isOpen());
}

// ---- Following ----

TEST_F(LogReader, FollowsAGrowingFile) {
  writeFile(path(), "1\n");
  qmrkctl::LogReader reader(path());
  reader.begin({}, 9);
  EXPECT_EQ(linesOf(reader), Lines{"1"});
  append("2\n3");
  EXPECT_EQ(refreshed(reader), Lines{"2"});
  append("4\n");
  EXPECT_EQ(refreshed(reader), Lines{"34"});
  EXPECT_EQ(refreshed(reader), Lines{});
}

TEST_F(LogReader, FollowsAFileThatAppearsLater) {
  qmrkctl::LogReader reader(path());
  reader.begin({}, 9);
  EXPECT_EQ(refreshed(reader), Lines{});
  writeFile(path(), "1\n");
  EXPECT_EQ(refreshed(reader), Lines{"1"});
}

TEST_F(LogReader, FollowsThroughARoll) {
  writeFile(path(), "1\n");
  qmrkctl::LogReader reader(path());
  reader.begin({}, 9);
  linesOf(reader);
  append("2\n");
  rename("x_log.txt", "x_log.txt.1");
  append("3\n");
  EXPECT_EQ(refreshed(reader), (Lines{"2", "3"}));
}

TEST_F(LogReader, FollowsThroughSeveralRollsAtOnce) {
  writeFile(folder_.file("x_log.txt.1"), "0\n");
  writeFile(path(), "1\n");
  qmrkctl::LogReader reader(path());
  reader.begin({}, 9);
  EXPECT_EQ(linesOf(reader), (Lines{"0", "1"}));
  append("2\n");
  rename("x_log.txt.1", "x_log.txt.3");
  rename("x_log.txt", "x_log.txt.2");
  writeFile(folder_.file("x_log.txt.1"), "3\n4\n");
  append("5\n");
  EXPECT_EQ(refreshed(reader), (Lines{"2", "3", "4", "5"}));
  rename("x_log.txt.1", "x_log.txt.2");
  rename("x_log.txt", "x_log.txt.1");
  append("6\n");
  EXPECT_EQ(refreshed(reader), Lines{"6"});
}

TEST_F(LogReader, FollowsWritesToARenamedFile) {
  writeFile(path(), "1\n");
  qmrkctl::LogReader reader(path());
  reader.begin({}, 9);
  linesOf(reader);
  rename("x_log.txt", "x_log.txt.1");
  append("2\n");
  EXPECT_EQ(refreshed(reader), Lines{"2"});
  std::ofstream(nativePath(folder_.file("x_log.txt.1")), std::ios::binary | std::ios::app) << "late\n";
  EXPECT_EQ(refreshed(reader), Lines{"late"});
}

TEST_F(LogReader, FollowsThroughARemovalWithoutRereadingABackup) {
  writeFile(folder_.file("x_log.txt.1"), "0\n");
  writeFile(path(), "1\n");
  qmrkctl::LogReader reader(path());
  reader.begin({}, 9);
  EXPECT_EQ(linesOf(reader), (Lines{"0", "1"}));
  testsupport::removeAll(path());
  EXPECT_EQ(refreshed(reader), Lines{});
  append("2\n");
  EXPECT_EQ(refreshed(reader), Lines{"2"});
}

TEST_F(LogReader, StartsAgainInAnEmptiedFile) {
  writeFile(path(), "1\n2\n3\n");
  qmrkctl::LogReader reader(path());
  reader.begin({}, 9);
  linesOf(reader);
  writeFile(path(), "4\n");
  EXPECT_EQ(refreshed(reader), Lines{"4"});
}

TEST_F(LogReader, NoticesAFileEmptiedAndGrownBeyondItsFormerSize) {
  writeFile(path(), "1\n2\n");
  qmrkctl::LogReader reader(path());
  reader.begin({}, 9);
  linesOf(reader);
  writeFile(path(), "3\n4\n5\n6\n");
  EXPECT_EQ(refreshed(reader), (Lines{"3", "4", "5", "6"}));
}

TEST_F(LogReader, YieldsAFragmentThatStaysOne) {
  writeFile(path(), "1\nfragment");
  qmrkctl::LogReader reader(path());
  reader.begin({}, 9);
  linesOf(reader);
  std::string line;
  refreshed(reader);
  EXPECT_FALSE(reader.takeFragment(line, 2));
  refreshed(reader);
  EXPECT_TRUE(reader.takeFragment(line, 2));
  EXPECT_EQ(line, "fragment");
}

}  // namespace
