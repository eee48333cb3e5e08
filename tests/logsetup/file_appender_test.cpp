// SPDX-License-Identifier: MIT
#include "logsetup/file_appender.h"

#include <gtest/gtest.h>

#include <boost/function.hpp>

#include "logsetup/periodic_file_appender.h"
#include "tests/support/fault_plan.h"
#include "tests/support/temporary_folder.h"

namespace {

using boost::logging::file_appender;
using boost::logging::logfile;
using boost::logging::periodic_file_appender;
using testsupport::FaultPlan;
using testsupport::readFile;
using testsupport::TemporaryFolder;
using testsupport::writeFile;

using Appender = boost::function<void(const std::string&, const std::string&)>;

// Each open gets a name of its own: the base name and the number of the open since the last reset.
int opens = 0;
std::string numberedName(const std::string& _name) { return _name + "-" + std::to_string(++opens); }

// While a clock that fails reads as 1970, an appender made then has a first period that ended long ago.
periodic_file_appender withAnEndedPeriod(const std::string& _name, boost::logging::name_function _function) {
  const FaultPlan clock(platform::Call::clock, 1, platform::errorAccessDenied);
  return periodic_file_appender::yearly(_name, _function, true);
}

struct Periods : periodic_file_appender {
  explicit Periods(const periodic_file_appender& _appender) : periodic_file_appender(_appender) {}
  std::int32_t seconds() const { return period_seconds; }
};

TEST(FileAppender, CreatesTheFileInItsConstructor) {
  const TemporaryFolder folder;
  const file_appender appender(folder.file("a.txt"), nullptr, true);
  EXPECT_EQ(readFile(folder.file("a.txt")), "");
}

TEST(FileAppender, WritesMessagesAsTheyAreAndFlushesEachOne) {
  const TemporaryFolder folder;
  file_appender appender(folder.file("a.txt"), nullptr, true);
  appender.write("one");
  EXPECT_EQ(readFile(folder.file("a.txt")), "one");
  appender.write(std::string("\0two", 4));
  EXPECT_EQ(readFile(folder.file("a.txt")), std::string("one\0two", 7));
}

TEST(FileAppender, IgnoresTheLogName) {
  const TemporaryFolder folder;
  file_appender appender(folder.file("a.txt"), nullptr, true);
  appender("App.error", "text");
  EXPECT_EQ(readFile(folder.file("a.txt")), "text");
}

TEST(FileAppender, ContinuesAnExistingFileOrEmptiesIt) {
  const TemporaryFolder folder;
  writeFile(folder.file("a.txt"), "old ");
  file_appender(folder.file("a.txt"), nullptr, true).write("new");
  EXPECT_EQ(readFile(folder.file("a.txt")), "old new");
  file_appender(folder.file("a.txt"), nullptr, false).write("newer");
  EXPECT_EQ(readFile(folder.file("a.txt")), "newer");
}

TEST(FileAppender, SharesTheFileAmongCopiesEvenInsideABoostFunction) {
  const TemporaryFolder folder;
  Appender held;
  {
    file_appender first(folder.file("a.txt"), nullptr, false);
    held = first;
    first.write("1");
  }
  held("", "2");
  EXPECT_EQ(readFile(folder.file("a.txt")), "12");
}

TEST(FileAppender, CallsTheVirtualWrite) {
  struct Doubling : file_appender {
    using file_appender::file_appender;
    void write(const std::string& _msg) override { file_appender::write(_msg + _msg); }
  };
  const TemporaryFolder folder;
  Doubling appender(folder.file("a.txt"), nullptr, true);
  appender("log", "ab");
  EXPECT_EQ(readFile(folder.file("a.txt")), "abab");
}

TEST(FileAppender, LosesMessagesSilentlyWhenItCannotOpenTheFile) {
  const TemporaryFolder folder;
  file_appender appender(folder.file("missing\\a.txt"), nullptr, true);
  EXPECT_NO_THROW(appender.write("lost"));
  testsupport::makeFolders(folder.file("missing"));
  EXPECT_NO_THROW(appender.write("lost"));
  EXPECT_FALSE(testsupport::exists(folder.file("missing\\a.txt")));
}

TEST(Logfile, KnowsItsBaseNameAndTheNameThatItOpenedLast) {
  const TemporaryFolder folder;
  opens = 0;
  logfile file(folder.file("a"), numberedName);
  EXPECT_EQ(file.current_name, "");
  file.open(true);
  EXPECT_EQ(file.current_name, folder.file("a-1"));
  file.out.close();
  file.open(true);
  EXPECT_EQ(file.current_name, folder.file("a-2"));
  EXPECT_EQ(file.file_name, folder.file("a"));
}

TEST(Logfile, ClearsAnEarlierErrorWhenItOpens) {
  const TemporaryFolder folder;
  logfile file(folder.file("missing\\a.txt"), nullptr);
  file.open(true);
  EXPECT_TRUE(file.out.fail());
  EXPECT_EQ(file.out.tellp(), -1);
  testsupport::makeFolders(folder.file("missing"));
  file.open(true);
  EXPECT_TRUE(file.out.good());
}

TEST(Logfile, StartsAtTheEndOfAnExistingFile) {
  const TemporaryFolder folder;
  writeFile(folder.file("a.txt"), "12345");
  logfile file(folder.file("a.txt"), nullptr);
  file.open(true);
  EXPECT_EQ(file.out.tellp(), 5);
}

TEST(PeriodicFileAppender, EmptiesTheFileBeforeTheFirstMessageOfANewPeriod) {
  const TemporaryFolder folder;
  writeFile(folder.file("a.txt"), "old");
  auto appender = withAnEndedPeriod(folder.file("a.txt"), nullptr);
  EXPECT_EQ(readFile(folder.file("a.txt")), "old");
  appender.write("1");
  EXPECT_EQ(readFile(folder.file("a.txt")), "1");
  appender.write("2");
  EXPECT_EQ(readFile(folder.file("a.txt")), "12");
}

TEST(PeriodicFileAppender, ContinuesTheFileWithinAPeriod) {
  const TemporaryFolder folder;
  writeFile(folder.file("a.txt"), "old");
  auto appender = periodic_file_appender::daily(folder.file("a.txt"), nullptr, true);
  appender("log", "1");
  EXPECT_EQ(readFile(folder.file("a.txt")), "old1");
}

TEST(PeriodicFileAppender, StartsAPeriodAtEveryMessageWhenPeriodsHaveNoLength) {
  const TemporaryFolder folder;
  periodic_file_appender appender(folder.file("a.txt"), 0, nullptr, true);
  appender.write("1");
  appender.write("2");
  EXPECT_EQ(readFile(folder.file("a.txt")), "2");
}

TEST(PeriodicFileAppender, TakesAFileForEachPeriodFromANameFunction) {
  const TemporaryFolder folder;
  opens = 0;
  auto appender = withAnEndedPeriod(folder.file("a"), numberedName);
  appender.write("text");
  EXPECT_EQ(readFile(folder.file("a-1")), "");
  EXPECT_EQ(readFile(folder.file("a-2")), "text");
}

TEST(PeriodicFileAppender, OffersPresetPeriods) {
  const TemporaryFolder folder;
  const auto seconds = [&](auto _preset) { return Periods(_preset(folder.file("a.txt"), nullptr, true)).seconds(); };
  EXPECT_EQ(seconds(periodic_file_appender::hourly), 3600);
  EXPECT_EQ(seconds(periodic_file_appender::daily), 86400);
  EXPECT_EQ(seconds(periodic_file_appender::weekly), 604800);
  EXPECT_EQ(seconds(periodic_file_appender::monthly), 2678400);
  EXPECT_EQ(seconds(periodic_file_appender::yearly), 31536000);
}

}  // namespace
