// SPDX-License-Identifier: MIT
#include "tools/logs/civil_time.h"

#include <gtest/gtest.h>

namespace {

using platform::LocalTime;
using qmrkctl::civilText;
using qmrkctl::civilTime;

TEST(CivilTime, CountsMillisecondsOfTheWallClock) {
  EXPECT_EQ(civilTime(LocalTime{1970, 1, 1, 0, 0, 0, 0}), 0);
  EXPECT_EQ(civilTime(LocalTime{1970, 1, 2, 0, 0, 1, 5}), 86'401'005);
  EXPECT_EQ(civilTime(LocalTime{2026, 11, 22, 5, 3, 7, 0}), 1'795'323'787'000);
}

TEST(CivilTime, RefusesDaysAndTimesThatDoNotExist) {
  EXPECT_FALSE(civilTime(LocalTime{2026, 2, 29, 0, 0, 0, 0}));
  EXPECT_TRUE(civilTime(LocalTime{2028, 2, 29, 0, 0, 0, 0}));
  EXPECT_FALSE(civilTime(LocalTime{2026, 13, 1, 0, 0, 0, 0}));
  EXPECT_FALSE(civilTime(LocalTime{2026, 0, 1, 0, 0, 0, 0}));
  EXPECT_FALSE(civilTime(LocalTime{2026, 1, 1, 24, 0, 0, 0}));
  EXPECT_FALSE(civilTime(LocalTime{2026, 1, 1, 0, 60, 0, 0}));
  EXPECT_FALSE(civilTime(LocalTime{2026, 1, 1, 0, 0, 61, 0}));
  EXPECT_TRUE(civilTime(LocalTime{2026, 1, 1, 0, 0, 60, 0})) << "a leap second";
  EXPECT_FALSE(civilTime(LocalTime{}));
  EXPECT_FALSE(civilTime(LocalTime{1969, 12, 31, 23, 59, 59, 999}));
}

TEST(CivilTime, ConvertsAMomentBack) {
  EXPECT_EQ(civilText(*civilTime(LocalTime{2026, 11, 22, 5, 3, 7, 999})), "2026-11-22 05:03:07");
  EXPECT_EQ(civilText(0), "1970-01-01 00:00:00");
}

}  // namespace
