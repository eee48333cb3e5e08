// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <boost/filesystem/exception.hpp>
#include <boost/logging/logging.hpp>
#include <cstdint>
#include <thread>

#include "logmanager/appenders/failure_report.h"
#include "logsetup/rolling_file_appender.h"
#include "tests/support/companion_process.h"
#include "tests/support/temporary_folder.h"

namespace {

using boost::logging::rolling_file_appender;
using testsupport::CompanionProcess;
using testsupport::exists;
using testsupport::readFile;

class HeldFile : public ::testing::Test {
 protected:
  CompanionProcess hold() const {
    CompanionProcess holder({QMRK_FILE_HOLDER, path_});
    EXPECT_EQ(holder.readLine(), "held");
    return holder;
  }

  testsupport::TemporaryFolder folder_;
  std::string path_ = folder_.file("a_log.txt");
};

TEST_F(HeldFile, ReportsTheFailedRenameAndClosesTheStream) {
  rolling_file_appender appender(path_, 4, 2, nullptr, true);
  {
    CompanionProcess holder = hold();
    EXPECT_THROW(appender.write("1234"), boost::filesystem::filesystem_error);
    EXPECT_EQ(holder.finish(), 0);
  }
  EXPECT_NO_THROW(appender.write("lost"));
  EXPECT_EQ(readFile(path_), "1234");
  EXPECT_FALSE(exists(path_ + ".1"));
}

TEST_F(HeldFile, RollsWhenItIsReleasedInTime) {
  rolling_file_appender appender(path_, 8, 2, nullptr, true);
  {
    CompanionProcess holder = hold();
    EXPECT_NO_THROW(appender.write("1234"));
    EXPECT_EQ(holder.finish(), 0);
  }
  EXPECT_NO_THROW(appender.write("5678"));
  EXPECT_EQ(readFile(path_ + ".1"), "12345678");
  EXPECT_EQ(readFile(path_), "");
}

TEST_F(HeldFile, DoesNotEndTheProcessInThreadSafeMode) {
  const rolling_file_appender rolling(path_, 4, 2, nullptr, true);
  const boost::logging::ts_appender appender(rolling, 0);
  CompanionProcess holder = hold();
  const std::uint64_t before = boost::logging::detail::exceptionCount();
  EXPECT_NO_THROW(appender("log", "1234"));
  // The writer meets the error when it gets a processor.
  while (boost::logging::detail::exceptionCount() == before)
    std::this_thread::yield();
  EXPECT_NO_THROW(appender("log", "lost"));
  EXPECT_EQ(holder.finish(), 0);
  EXPECT_EQ(readFile(path_), "1234");
  EXPECT_FALSE(exists(path_ + ".1"));
}

}  // namespace
