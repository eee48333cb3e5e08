// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/utc_time.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using qmrkctl::utcText;

TEST(UtcTime, FollowsRfc3339) {
  EXPECT_EQ(utcText(0), "1970-01-01T00:00:00.000Z");
  EXPECT_EQ(utcText(1795324874123), "2026-11-22T05:21:14.123Z");
  EXPECT_EQ(utcText(-1), "1969-12-31T23:59:59.999Z");
  EXPECT_EQ(utcText(2147483648000), "2038-01-19T03:14:08.000Z");
}

}  // namespace
