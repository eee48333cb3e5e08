// SPDX-License-Identifier: MIT
#include "tools/system/appended_line.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"

namespace {

using testsupport::nativeLineEnds;
using testsupport::readFile;
using toolsystem::appendRecord;
using toolsystem::appendToLog;

class AppendedLine : public testing::Test {
 protected:
  testsupport::TemporaryFolder folder_;
  std::string path_ = folder_.file("file");
};

TEST_F(AppendedLine, BeginsOnALineOfItsOwn) {
  testsupport::writeFile(path_, "unfini");
  EXPECT_FALSE(appendToLog(path_, "one\n", std::nullopt));
  EXPECT_FALSE(appendToLog(path_, "two\n", std::nullopt));
  EXPECT_EQ(readFile(path_), "unfini" + nativeLineEnds("\none\ntwo\n"));
  testsupport::writeFile(path_, "{\"torn");
  EXPECT_FALSE(appendRecord(path_, "one\n"));
  EXPECT_FALSE(appendRecord(path_, "two\n"));
  EXPECT_EQ(readFile(path_), "{\"torn" + nativeLineEnds("\none\ntwo\n"));
}

TEST_F(AppendedLine, IsTheFirstOfAnEmptyFile) {
  testsupport::writeFile(path_, "");
  EXPECT_FALSE(appendToLog(path_, "one\n", std::nullopt));
  EXPECT_EQ(readFile(path_), nativeLineEnds("one\n"));
}

TEST_F(AppendedLine, CreatesNoLogButAFileOfRecords) {
  EXPECT_TRUE(appendToLog(path_, "one\n", std::nullopt)->isMissing);
  EXPECT_FALSE(testsupport::exists(path_));
  EXPECT_FALSE(appendRecord(path_, "one\n"));
  EXPECT_EQ(readFile(path_), nativeLineEnds("one\n"));
}

}  // namespace
