// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/duration.h"

#include <gtest/gtest.h>

namespace {

using qmrkctl::durationText;
using qmrkctl::parseDuration;
using std::chrono::milliseconds;

TEST(Duration, IsReadInEveryUnit) {
  EXPECT_EQ(parseDuration("500ms"), milliseconds(500));
  EXPECT_EQ(parseDuration("20s"), milliseconds(20'000));
  EXPECT_EQ(parseDuration("20"), milliseconds(20'000));
  EXPECT_EQ(parseDuration("20m"), milliseconds(1'200'000));
  EXPECT_EQ(parseDuration("2h"), milliseconds(7'200'000));
  EXPECT_EQ(parseDuration("1d"), milliseconds(86'400'000));
  EXPECT_EQ(parseDuration("0"), milliseconds(0));
}

TEST(Duration, RefusesEverythingElse) {
  for (const char* text : {"", "m", "-1s", "1.5s", "1 s", "1x", "1sm", "99999999999", "4000d", "4294967295d"}) {
    EXPECT_EQ(parseDuration(text), std::nullopt) << text;
  }
}

TEST(Duration, IsShownInItsLargestUnit) {
  for (const char* text : {"500ms", "20s", "20m", "2h", "1d"})
    EXPECT_EQ(durationText(*parseDuration(text)), text);
  EXPECT_EQ(durationText(milliseconds(90'000)), "90s");
  EXPECT_EQ(durationText(milliseconds(0)), "0s");
}

}  // namespace
