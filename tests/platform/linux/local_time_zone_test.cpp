// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdio>
#include <ctime>
#include <string>

#include "platform/clock.h"
#include "tests/support/config_sandbox.h"

namespace {

using platform::LocalTime;
using platform::toLocalTime;

// Sets the time zone of the process while it lives.
class Zone {
 public:
  explicit Zone(const std::string& _zone) { set(_zone); }
  ~Zone() { set(""); }
  Zone(const Zone&) = delete;
  Zone& operator=(const Zone&) = delete;

 private:
  static void set(const std::string& _zone) {
    testsupport::setEnvironment("TZ", _zone);
    ::tzset();
  }
};

std::string textOf(const LocalTime& _time) {
  char text[64];
  std::snprintf(text, sizeof text, "%d-%d-%d %d:%d:%d.%d", _time.year, _time.month, _time.day, _time.hour, _time.minute,
                _time.second, _time.millisecond);
  return text;
}

constexpr char centralEurope[] = "CET-1CEST,M3.5.0,M10.5.0/3";

TEST(LocalTimeZone, CountsAsPeopleDo) {
  const Zone zone("UTC0");
  EXPECT_EQ(textOf(toLocalTime(1167984187123)), "2007-1-5 8:3:7.123");
  EXPECT_EQ(textOf(toLocalTime(1230767999999)), "2008-12-31 23:59:59.999");
}

TEST(LocalTimeZone, KnowsWinterAndSummerTime) {
  const Zone zone(centralEurope);
  EXPECT_EQ(textOf(toLocalTime(1167984187123)), "2007-1-5 9:3:7.123");
  EXPECT_EQ(textOf(toLocalTime(1183612987000)), "2007-7-5 7:23:7.0");
}

TEST(LocalTimeZone, GoesForwardWithinOneMillisecond) {
  const Zone zone(centralEurope);
  EXPECT_EQ(textOf(toLocalTime(1174784399999)), "2007-3-25 1:59:59.999");
  EXPECT_EQ(textOf(toLocalTime(1174784400000)), "2007-3-25 3:0:0.0");
}

TEST(LocalTimeZone, HasNoNegativeMillisecondBeforeTheEpoch) {
  const Zone zone("UTC0");
  EXPECT_EQ(textOf(toLocalTime(-1)), "1969-12-31 23:59:59.999");
  EXPECT_EQ(textOf(toLocalTime(-1000)), "1969-12-31 23:59:59.0");
  EXPECT_EQ(textOf(toLocalTime(-1001)), "1969-12-31 23:59:58.999");
}

}  // namespace
