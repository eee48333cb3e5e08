// SPDX-License-Identifier: MIT
// The stamps of lines when the time is not what one thinks.
#include <gtest/gtest.h>

#include <boost/logging/logging.hpp>
#include <ctime>
#include <string>

#include "logmanager/threads/thread_state.h"
#include "tests/support/config_sandbox.h"

namespace {

class Stamp : public testing::Test {
 protected:
  ~Stamp() override { setZone(""); }

  static void setZone(const std::string& _zone) {
    testsupport::setEnvironment("TZ", _zone);
    ::tzset();
  }

  /// The stamp of a statement at that time.
  static std::string at(std::int64_t _milliseconds) {
    static const boost::logging::prepend_time_ms stamp("$yyyy-$MM-$dd $hh:$mm:$ss.$mss");
    const boost::logging::detail::MessageScope scope(boost::logging::detail::threadState(), _milliseconds);
    std::string text;
    stamp("App", text);
    return text;
  }
};

TEST_F(Stamp, CountsOnBeyondTheEndOf32Bits) {
  setZone("UTC0");
  EXPECT_EQ(at(2147483647999), "2038-01-19 03:14:07.999");
  EXPECT_EQ(at(2147483648000), "2038-01-19 03:14:08.000");
  EXPECT_EQ(at(4102444800000), "2100-01-01 00:00:00.000");
}

TEST_F(Stamp, FollowsAClockThatGoesBack) {
  setZone("UTC0");
  EXPECT_EQ(at(1700000001500), "2023-11-14 22:13:21.500");
  EXPECT_EQ(at(1700000001499), "2023-11-14 22:13:21.499");
  EXPECT_EQ(at(1699999999999), "2023-11-14 22:13:19.999");
  EXPECT_EQ(at(1600000000000), "2020-09-13 12:26:40.000");
  EXPECT_EQ(at(1700000001501), "2023-11-14 22:13:21.501");
}

TEST_F(Stamp, RepeatsTheHourAtTheEndOfSummerTime) {
  setZone("CET-1CEST,M3.5.0,M10.5.0/3");
  EXPECT_EQ(at(1792887300000), "2026-10-25 02:15:00.000");
  EXPECT_EQ(at(1792890900000), "2026-10-25 02:15:00.000");
  EXPECT_EQ(at(1792894500000), "2026-10-25 03:15:00.000");
}

}  // namespace
