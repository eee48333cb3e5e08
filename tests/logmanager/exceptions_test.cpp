// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>

#include "boost/logging/logging.hpp"
#include "logmanager/appenders/failure_report.h"
#include "tests/logmanager/recorder.h"

namespace {

namespace bl = boost::logging;
using bl::detail::exceptionCount;
using bl::detail::OncePerMinute;
using testing::ElementsAre;

void throwing(const std::string& /*_log*/, const std::string& /*_message*/) { throw std::runtime_error("broken"); }
void throwingNumber(const std::string& /*_log*/, std::string& _message) {
  _message += "!";
  throw 7;
}

// The first exception of the process is told at once, so this test comes first.
TEST(Exceptions, AppearOnStandardErrorOncePerMinute) {
  bl::flush_log_cache();
  bl::add_appender(bl::get_default_log_manager(), "E2", &throwing, "bad one", 1);
  testing::internal::CaptureStderr();
  for (int i = 0; i < 1000; ++i)
    bl::logger("E2").write("text");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "boost::logging: 1 exception in appenders and modifiers; the last: \"bad one\", log \"E2\": broken\n");
}

TEST(Exceptions, ReachNeitherTheStatementNorTheOtherAppenders) {
  bl::default_log_manager& manager = bl::get_default_log_manager();
  bl::flush_log_cache();
  const testsupport::Recorder recorder;
  bl::add_modifier(manager, "E1", &throwingNumber, "M", 1);
  bl::add_modifier(manager, "E1", testsupport::suffix("."), "M", 2);
  bl::add_appender(manager, "E1", &throwing, "bad", 1);
  bl::add_appender(manager, "E1", recorder.appender(), "A", 2);
  const std::uint64_t before = exceptionCount();
  EXPECT_NO_THROW(QMRK_LOG(bl::logger("E1")) << "text");
  EXPECT_NO_THROW(bl::logger("E1").write("text"));
  EXPECT_THAT(recorder.messages(), ElementsAre("E1|text!.", "E1|text!."));
  EXPECT_EQ(exceptionCount() - before, 4U);
}

TEST(OncePerMinute, ReportsTheFirstTimeAtOnceAndLaterTheNumberSince) {
  OncePerMinute report;
  EXPECT_EQ(report.happened(0), 1U);
  EXPECT_EQ(report.happened(1), 0U);
  EXPECT_EQ(report.happened(59999), 0U);
  EXPECT_EQ(report.happened(60000), 3U);
  EXPECT_EQ(report.happened(119999), 0U);
  EXPECT_EQ(report.happened(500000), 2U);
}

TEST(EndlessLogging, EndsWithAReportWhenAnAppenderLogsToItself) {
  bl::flush_log_cache();
  const bl::logger log("E3");
  int calls = 0;
  bl::add_appender(
      bl::get_default_log_manager(), "E3",
      [&calls, &log](const std::string&, const std::string& _message) {
        ++calls;
        log.write(_message + "again");
      },
      "A", 1);
  const std::uint64_t before = exceptionCount();
  log.write("");
  EXPECT_EQ(calls, 8);
  EXPECT_EQ(exceptionCount() - before, 1U);
}

// A program that writes to ever new files must not make the manager keep ever more of them.
TEST(Losses, AppearOncePerMinuteForEachOfManyFilesAndOnceForAllOthers) {
  testing::internal::CaptureStderr();
  for (int round = 0; round < 2; ++round) {
    for (int file = 0; file < 1005; ++file)
      bl::detail::reportLoss("file" + std::to_string(file), 1, 5);
  }
  const std::string text = testing::internal::GetCapturedStderr();
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1001);
  EXPECT_NE(text.find("1 message could not be written to file999, error 5\n"), std::string::npos);
  EXPECT_NE(text.find("1 message could not be written to file1000, error 5\n"), std::string::npos);
  EXPECT_EQ(text.find("file1001"), std::string::npos);
}

}  // namespace
