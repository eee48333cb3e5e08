// SPDX-License-Identifier: MIT
// The position that a log file tells is always the one of its stream, also where it is counted.
#include <gtest/gtest.h>

#include <string>

#include "logsetup/logfile.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/temporary_folder.h"

namespace {

using boost::logging::logfile;

class LogfilePosition : public testing::Test {
 protected:
  /// Writes so many lines; after each the position has to be that of the stream.
  static void writeLines(logfile& _file, int _count) {
    for (int i = 0; i < _count; ++i) {
      _file.write(i % 3 == 1 ? "no end" : "a line\n");
      EXPECT_EQ(_file.position(), std::int64_t{_file.out.tellp()});
    }
  }
  testsupport::TemporaryFolder folder_;
  std::string name_ = folder_.file("log");
  logfile file_{name_, nullptr};
};

TEST_F(LogfilePosition, IsThatOfTheStreamInANewFileAndAfterEveryOpening) {
  EXPECT_EQ(file_.position(), -1);
  for (const bool append : {false, true, false}) {
    file_.open(append);
    writeLines(file_, 20);
    file_.out.close();
    EXPECT_EQ(file_.position(), -1);
  }
}

TEST_F(LogfilePosition, IncludesWhatOthersAppended) {
  file_.open(true);
  logfile other(name_, nullptr);
  other.open(true);
  for (int i = 0; i < 10; ++i) {
    writeLines(other, 1);
    writeLines(file_, 1);
  }
  EXPECT_EQ(file_.position(), 140);
}

TEST_F(LogfilePosition, IncludesWhatAForkedChildWrote) {
  file_.open(false);
  writeLines(file_, 5);
  const int childFailed = testsupport::inForkedChild([this] {
    writeLines(file_, 5);
    return HasFailure() ? 1 : 0;
  });
  EXPECT_EQ(childFailed, 0);
  writeLines(file_, 5);
  file_.open(false);
  file_.out.close();
  file_.open(false);
  writeLines(file_, 5);
}

TEST_F(LogfilePosition, IsMinusOneOnceAWriteHasFailed) {
  logfile full("/dev/full", nullptr);
  full.open(false);
  writeLines(full, 3);
  EXPECT_EQ(full.position(), -1);
}

}  // namespace
