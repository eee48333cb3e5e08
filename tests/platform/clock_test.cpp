// SPDX-License-Identifier: MIT
#include "platform/clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>

#include "tests/support/fault_plan.h"

namespace {

using platform::Call;
using platform::LocalTime;
using platform::localTime;
using platform::steadyMilliseconds;
using platform::toLocalTime;
using platform::wallClockMilliseconds;
using testsupport::FaultPlan;

std::int64_t systemMilliseconds() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::system_clock::now().time_since_epoch())
      .count();
}

// The moment of a local time, by the C library.
std::int64_t momentOf(const LocalTime& _time) {
  std::tm fields{};
  fields.tm_year = _time.year - 1900;
  fields.tm_mon = _time.month - 1;
  fields.tm_mday = _time.day;
  fields.tm_hour = _time.hour;
  fields.tm_min = _time.minute;
  fields.tm_sec = _time.second;
  fields.tm_isdst = -1;
  return static_cast<std::int64_t>(std::mktime(&fields)) * 1000 + _time.millisecond;
}

void expectZero(const LocalTime& _time) {
  EXPECT_EQ(_time.year, 0);
  EXPECT_EQ(_time.month, 0);
  EXPECT_EQ(_time.day, 0);
  EXPECT_EQ(_time.hour, 0);
  EXPECT_EQ(_time.minute, 0);
  EXPECT_EQ(_time.second, 0);
  EXPECT_EQ(_time.millisecond, 0);
}

TEST(Clock, TakesTheWallClockFromTheSystem) {
  const std::int64_t before = systemMilliseconds();
  const std::int64_t now = wallClockMilliseconds();
  const std::int64_t after = systemMilliseconds();
  // The ticks of the two clocks of Windows are 16 ms apart at most.
  EXPECT_LE(before - 16, now);
  EXPECT_LE(now, after + 16);
}

TEST(Clock, NeverTurnsTheSteadyClockBack) {
  std::int64_t last = steadyMilliseconds();
  for (int i = 0; i < 10000; ++i) {
    const std::int64_t now = steadyMilliseconds();
    ASSERT_LE(last, now);
    last = now;
  }
}

TEST(Clock, AdvancesTheSteadyClock) {
  using Clock = std::chrono::steady_clock;
  // Each reading is between two of the other clock, however long the thread waits for the processor in between.
  const Clock::time_point before = Clock::now();
  const std::int64_t start = steadyMilliseconds();
  const Clock::time_point begin = Clock::now();
  while (Clock::now() < begin + std::chrono::milliseconds(100)) {
  }
  const std::int64_t passed = steadyMilliseconds() - start;
  const auto mostPassed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - before);
  EXPECT_GE(passed, 80);
  EXPECT_LE(passed, mostPassed.count() + 20);
}

TEST(Clock, AgreesWithTheCLibraryAboutTheLocalTime) {
  for (const std::int64_t moment : {0LL, 1LL, 999LL, 1000LL, 1167984187123LL, 1795255200456LL, 1593561600999LL}) {
    EXPECT_EQ(momentOf(toLocalTime(moment)), moment);
  }
}

TEST(Clock, AgreesWithItselfAboutNow) {
  const std::int64_t before = wallClockMilliseconds();
  const LocalTime now = localTime();
  const std::int64_t after = wallClockMilliseconds();
  EXPECT_LE(before - 16, momentOf(now));
  EXPECT_LE(momentOf(now), after + 16);
}

TEST(Clock, GivesZeroWhenAReadingFails) {
  const FaultPlan plan(Call::clock, 1, platform::errorAccessDenied, 2);
  EXPECT_EQ(wallClockMilliseconds(), 0);
  EXPECT_EQ(steadyMilliseconds(), 0);
  EXPECT_GT(wallClockMilliseconds(), 0);
}

TEST(Clock, GivesNoLocalTimeWhenAReadingFails) {
  const FaultPlan plan(Call::clock, 1, platform::errorAccessDenied);
  expectZero(localTime());
  EXPECT_GE(localTime().year, 2024);
}

}  // namespace
