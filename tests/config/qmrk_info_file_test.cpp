// SPDX-License-Identifier: MIT
#include "config/qmrk_info_file.h"

#include <gtest/gtest.h>

#include "tests/config/records.h"
#include "tests/support/fault_plan.h"

using Quillmark_logging::appendRecord;
using Quillmark_logging::RecordResult;
using Quillmark_logging::recordStamp;

namespace {

using platform::Call;
using testsupport::FaultPlan;
using testsupport::readFile;
using testsupport::recordsIn;

class RecordFile : public testing::Test {
 protected:
  testsupport::TemporaryFolder folder_;
  std::string path_ = folder_.file("qmrk.info");
};

TEST_F(RecordFile, StampsWithTwoDigitsExceptForTheYear) {
  EXPECT_EQ(recordStamp({2007, 1, 5, 9, 3, 7, 123}), "2007/01/05 09:03:07 ");
  EXPECT_EQ(recordStamp({2026, 12, 31, 23, 59, 59, 0}), "2026/12/31 23:59:59 ");
  EXPECT_EQ(recordStamp({987, 10, 10, 0, 0, 0, 0}), "987/10/10 00:00:00 ");
}

TEST_F(RecordFile, GrowsByEachRecordFromTheFirst) {
  EXPECT_EQ(appendRecord(path_, "one"), RecordResult::written);
  EXPECT_EQ(appendRecord(path_, "two "), RecordResult::written);
  EXPECT_EQ(recordsIn(path_), (std::vector<std::string>{"one", "two "}));
}

TEST_F(RecordFile, BeginsARecordOnALineOfItsOwnBehindOneThatWasWrittenInPart) {
  testsupport::writeFile(path_, recordStamp(platform::localTime()) + "par");
  EXPECT_EQ(appendRecord(path_, "whole"), RecordResult::written);
  EXPECT_EQ(recordsIn(path_), (std::vector<std::string>{"par", "whole"}));
}

TEST_F(RecordFile, StampsWithTheLocalTime) {
  const std::string before = recordStamp(platform::localTime());
  appendRecord(path_, "x");
  const std::string after = recordStamp(platform::localTime());
  const std::string stamp = readFile(path_).substr(0, before.size());
  EXPECT_LE(before, stamp);
  EXPECT_LE(stamp, after);
}

TEST_F(RecordFile, FailsInAMissingFolder) {
  EXPECT_EQ(appendRecord(folder_.file("missing\\qmrk.info"), "x"), RecordResult::notOpened);
  EXPECT_FALSE(testsupport::exists(folder_.file("missing")));
}

TEST_F(RecordFile, FailsWhenTheDiskIsFull) {
  const FaultPlan failure(Call::write, 1, platform::errorDiskFull);
  EXPECT_EQ(appendRecord(path_, "x"), RecordResult::notWritten);
}

}  // namespace
