// SPDX-License-Identifier: MIT
#include "tools/logs/merged_logs.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace {

using qmrkctl::BackwardScan;
using qmrkctl::MergedLine;
using qmrkctl::MergedLogs;
using testsupport::writeFile;
using toolsystem::OpenResult;

std::string timed(const std::string& _class, int _second) {
  return "[" + _class + "] 20261121 10:00:0" + std::to_string(_second) + " x";
}

// Number of the log and the last digit of the second, for each line.
std::string orderOf(MergedLogs& _logs) {
  std::string order;
  for (MergedLine line; _logs.next(line);)
    order += std::to_string(line.log) + ":" + std::to_string(line.time / 1000 % 10) + " ";
  return order;
}

TEST(MergedLogs, ComeInTheOrderOfTime) {
  const testsupport::TemporaryFolder folder;
  writeFile(folder.file("a"), timed("A", 1) + "\n" + timed("A", 4) + "\nrest\n" + timed("A", 5) + "\n");
  writeFile(folder.file("b"), timed("B", 2) + "\n" + timed("B", 4) + "\n" + timed("B", 6) + "\n");
  MergedLogs logs({folder.file("a"), folder.file("b"), folder.file("c")}, {});
  EXPECT_EQ(logs.begin(BackwardScan::allLines),
            (std::vector<OpenResult>{OpenResult::opened, OpenResult::opened, OpenResult::missing}));
  EXPECT_EQ(orderOf(logs), "0:1 1:2 0:4 0:4 1:4 0:5 1:6 ");
  writeFile(folder.file("c"), timed("C", 7) + "\n");
  logs.refresh();
  EXPECT_EQ(orderOf(logs), "2:7 ");
}

TEST(MergedLogs, HoldOnlyWhatIsAskedFor) {
  const testsupport::TemporaryFolder folder;
  writeFile(folder.file("a"), timed("A", 1) + "\n" + timed("B", 2) + "\n" + timed("B", 3));
  MergedLogs logs({folder.file("a")}, {{"B"}, {}});
  logs.begin(BackwardScan::allLines);
  EXPECT_EQ(orderOf(logs), "0:2 ");
  MergedLine line;
  ASSERT_TRUE(logs.takeFragment(line, 0));
  EXPECT_EQ(line.logClass, "B");
  EXPECT_EQ(line.text, timed("B", 3));
}

TEST(MergedLogs, ExistWhenOnlyBackupsDo) {
  const testsupport::TemporaryFolder folder;
  writeFile(folder.file("a.1"), timed("A", 1) + "\n");
  MergedLogs logs({folder.file("a")}, {});
  EXPECT_EQ(logs.begin(1), std::vector<OpenResult>{OpenResult::opened});
  EXPECT_EQ(orderOf(logs), "0:1 ");
}

}  // namespace
