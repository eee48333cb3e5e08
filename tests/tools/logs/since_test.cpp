// SPDX-License-Identifier: MIT
#include "tools/logs/since.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using qmrkctl::civilText;

// 2026-11-22 05:00:00.000 in UTC; the local time is an hour ahead.
constexpr std::int64_t now = 1'795'323'600'000;

platform::LocalTime local(std::int64_t _milliseconds) {
  constexpr std::int64_t hour = 3'600'000;
  platform::LocalTime time{2026, 11, 22, 6, 0, 0, 0};
  const std::int64_t ago = (now - _milliseconds) / 1000;
  if (ago > 6 * hour / 1000) return {2026, 11, 21, 6, 0, 0, 0};  // exactly a day ago
  time.hour = static_cast<int>((6 * 3600 - ago) / 3600);
  time.minute = static_cast<int>((6 * 3600 - ago) / 60 % 60);
  time.second = static_cast<int>((6 * 3600 - ago) % 60);
  return time;
}

std::string since(const std::string& _text) {
  const auto time = qmrkctl::sinceTime(_text, now, local);
  return time ? civilText(*time) : "wrong";
}

TEST(Since, AcceptsAnAge) {
  EXPECT_EQ(since("30s"), "2026-11-22 05:59:30");
  EXPECT_EQ(since("10m"), "2026-11-22 05:50:00");
  EXPECT_EQ(since("2h"), "2026-11-22 04:00:00");
  EXPECT_EQ(since("1d"), "2026-11-21 06:00:00");
  EXPECT_EQ(since("0s"), "2026-11-22 06:00:00");
}

TEST(Since, AcceptsAPastTimeOfDay) {
  EXPECT_EQ(since("05:00"), "2026-11-22 05:00:00");
  EXPECT_EQ(since("05:00:30"), "2026-11-22 05:00:30");
  EXPECT_EQ(since("06:00"), "2026-11-22 06:00:00");
  EXPECT_EQ(since("06:01"), "2026-11-21 06:01:00") << "is still to come today";
}

TEST(Since, AcceptsADayAndATime) {
  EXPECT_EQ(since("2026-11-20"), "2026-11-20 00:00:00");
  EXPECT_EQ(since("2026-11-20 05:00"), "2026-11-20 05:00:00");
  EXPECT_EQ(since("2026-11-20T05:00:01"), "2026-11-20 05:00:01");
}

TEST(Since, RefusesEverythingElse) {
  for (const char* const text :
       {"", "10", "m", "-1m", "10 m", "1w", "99999999d", "5:00", "05:0", "05:00:0", "24:00", "05:00x", "2026-11-31",
        "2026-11-22 ", "2026-11-22 5", "2026-11-22  05:00", "yesterday", "2026-11-22 05:00Z"}) {
    EXPECT_EQ(since(text), "wrong") << text;
  }
}

}  // namespace
