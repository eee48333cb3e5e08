// SPDX-License-Identifier: MIT
// The position of a log file is the one that the system has for it, also where it is counted.
#include "logsetup/logfile.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/linux/forked_child.h"
#include "tests/support/temporary_folder.h"

namespace {

using boost::logging::logfile;

class LogfilePosition : public testing::Test {
 protected:
  /// Writes so many lines; after each the position has to be the end of the file, which the file reaches only then.
  void writeLines(logfile& _file, int _count) const {
    for (int i = 0; i < _count; ++i) {
      _file.write(i % 3 == 1 ? "no end" : "a line\n");
      EXPECT_EQ(_file.position(), static_cast<std::int64_t>(testsupport::readFile(name_).size()));
      EXPECT_EQ(_file.position(), std::int64_t{_file.out.tellp()});
    }
  }
  testsupport::TemporaryFolder folder_;
  std::string name_ = folder_.file("log");
  logfile file_{name_, nullptr};
};

TEST_F(LogfilePosition, AgreesWithTheStreamInANewFileAndAfterEveryOpening) {
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

TEST_F(LogfilePosition, CountsOnlyItsOwnBytesInAFileNotOpenedForAppending) {
  file_.open(false);
  logfile other(name_, nullptr);
  other.open(true);
  other.write("appended\n");
  EXPECT_EQ(file_.position(), 0);
  file_.write("over");
  EXPECT_EQ(file_.position(), 4);
  EXPECT_EQ(testsupport::readFile(name_), "overnded\n");
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
  file_.out.close();
  file_.open(false);
  writeLines(file_, 5);
}

TEST_F(LogfilePosition, BecomesMinusOneWhenAnOpenStreamIsOpenedAgain) {
  file_.open(false);
  file_.open(false);
  EXPECT_TRUE(file_.out.fail());
  EXPECT_EQ(file_.position(), -1);
}

}  // namespace
