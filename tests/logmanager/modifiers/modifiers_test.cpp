// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/threads/thread_state.h"
#include "platform/clock.h"

namespace {

namespace bl = boost::logging;

std::string modified(const bl::modifier& _modifier, const std::string& _log, std::string _message) {
  _modifier(_log, _message);
  return _message;
}

/// What the modifier puts before a message of the time.
std::string stampOf(const bl::modifier& _modifier, std::int64_t _time) {
  const bl::detail::MessageScope scope(bl::detail::threadState(), _time);
  return modified(_modifier, "", "");
}

std::string number(int _value, std::size_t _digits) {
  const std::string text = std::to_string(_value);
  return std::string(_digits - text.size(), '0') + text;
}

/// The stamp put together by hand.
std::string expectedStamp(std::int64_t _time) {
  const platform::LocalTime time = platform::toLocalTime(_time);
  return number(time.year, 4) + number(time.month, 2) + number(time.day, 2) + " " + number(time.hour, 2) + ":" +
         number(time.minute, 2) + ":" + number(time.second, 2) + "." + number(time.millisecond, 3) + " ";
}

TEST(PrependPrefix, PutsTheNameOfTheLogInBracketsBeforeTheMessage) {
  EXPECT_EQ(modified(&bl::prepend_prefix, "App.error", "text"), "[App.error] text");
  EXPECT_EQ(modified(&bl::prepend_prefix, "", ""), "[] ");
}

TEST(AppendEnter, AppendsALineFeed) {
  EXPECT_EQ(modified(&bl::append_enter, "App", "text"), "text\n");
  EXPECT_EQ(modified(&bl::append_enter, "App", "text\n"), "text\n\n");
}

TEST(PrependTime, UsesTheTimeOfTheMessageInAnyOrder) {
  const bl::modifier modifier = bl::prepend_time_ms("$yyyy$MM$dd $hh:$mm:$ss.$mss ");
  const std::vector<std::int64_t> times{1795255200123, 1795255200124, 1795255200999, 1795255201000, 1795255200123, 1,
                                        1795255261007, 951782400000,  1009843199999};
  for (const std::int64_t time : times) {
    EXPECT_EQ(stampOf(modifier, time), expectedStamp(time));
  }
}

TEST(PrependTime, UsesTheCurrentTimeOutsideOfAMessage) {
  const bl::modifier modifier = bl::prepend_time_ms("$yyyy$MM$dd $hh:$mm:$ss.$mss ");
  const std::string before = expectedStamp(platform::wallClockMilliseconds());
  const std::string stamp = modified(modifier, "", "");
  EXPECT_LE(before, stamp);
  EXPECT_LE(stamp, expectedStamp(platform::wallClockMilliseconds()));
}

TEST(PrependTime, KeepsFormatsApart) {
  const bl::modifier one = bl::prepend_time_ms("1 $mss|");
  const bl::modifier other = bl::prepend_time_ms("$ss $mss|");
  EXPECT_EQ(stampOf(one, 2007), "1 007|");
  EXPECT_EQ(stampOf(other, 2008), "02 008|");
  EXPECT_EQ(stampOf(one, 2009), "1 009|");
  EXPECT_EQ(modified(bl::prepend_time_ms(""), "", "text"), "text");
}

TEST(PrependTime, AcceptsAFormatOfAnyLength) {
  const std::string filler(200, '-');
  EXPECT_EQ(stampOf(bl::prepend_time_ms(filler + "$mss"), 1042), filler + "042");
}

TEST(PrependTime, AgreesWithOtherStampsOfTheMessage) {
  std::string first;
  std::string message;
  const bl::detail::MessageScope scope(bl::detail::threadState(), 0);
  const bl::modifier modifier = bl::prepend_time_ms("$ss.$mss");
  modifier("", first);
  for (const std::int64_t end = platform::steadyMilliseconds() + 5; platform::steadyMilliseconds() < end;) {
  }
  modifier("", message);
  EXPECT_EQ(message, first);
}

}  // namespace
