// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/lease.h"

#include <gtest/gtest.h>

namespace {

using namespace qmrkctl;
using std::chrono::milliseconds;
using Names = std::vector<std::string>;

// At 1,000,000 by the clock, 5,000 after the start "one".
constexpr std::int64_t wallThen = 1'000'000;

Clocks clocksAfter(std::int64_t _milliseconds) { return {wallThen + _milliseconds, {"one", 5'000 + _milliseconds}}; }

Lease leaseFor(const Names& _classes, std::int64_t _milliseconds) {
  return leaseOf(_classes, milliseconds(_milliseconds), clocksAfter(0));
}

TEST(Lease, IsOverAfterItsTime) {
  const Lease lease = leaseFor({"A"}, 100);
  EXPECT_FALSE(isOver(lease, clocksAfter(99)));
  EXPECT_TRUE(isOver(lease, clocksAfter(100)));
  EXPECT_EQ(timeLeft(lease, clocksAfter(40)), milliseconds(60));
}

TEST(Lease, FollowsNoJumpOfTheClock) {
  const Lease lease = leaseFor({"A"}, 100);
  EXPECT_FALSE(isOver(lease, {wallThen + 1'000'000, {"one", 5'099}}));
  EXPECT_TRUE(isOver(lease, {0, {"one", 5'100}}));
}

TEST(Lease, FollowsTheClockAfterARestart) {
  const Lease lease = leaseFor({"A"}, 100);
  EXPECT_FALSE(isOver(lease, {wallThen + 99, {"two", 1'000'000}}));
  EXPECT_TRUE(isOver(lease, {wallThen + 100, {"two", 1}}));
}

TEST(Lease, IsOverWhenTheClockWasLostInARestart) {
  EXPECT_TRUE(isOver(leaseFor({"A"}, 100), {wallThen - 1, {"two", 1}}));
}

TEST(Lease, FollowsTheClockWhereAStartHasNoName) {
  Lease lease = leaseFor({"A"}, 100);
  lease.bootId = "";
  EXPECT_FALSE(isOver(lease, {wallThen + 99, {"", 1'000'000}}));
  EXPECT_TRUE(isOver(lease, {wallThen + 100, {"", 1}}));
}

TEST(Leases, SurviveTheirFile) {
  Lease lease = leaseFor({"A", "B*"}, 100);
  lease.who = "root";
  lease.reason = "a \"b\"\n";
  const auto read = parseLeases(leasesText({lease}));
  ASSERT_EQ(read.size(), 1U);
  EXPECT_EQ(read[0].classes, lease.classes);
  EXPECT_EQ(read[0].since, lease.since);
  EXPECT_EQ(read[0].until, lease.until);
  EXPECT_EQ(read[0].bootId, lease.bootId);
  EXPECT_EQ(read[0].untilUptime, lease.untilUptime);
  EXPECT_EQ(read[0].who, lease.who);
  EXPECT_EQ(read[0].reason, lease.reason);
}

TEST(Leases, AreNoneInATextThatIsNone) {
  for (const char* text :
       {"", "nonsense", "[]", "{}", "{\"leases\":7}", "{\"leases\":[7,{}]}", "{\"leases\":[{\"classes\":"}) {
    EXPECT_TRUE(parseLeases(text).empty()) << text;
  }
}

TEST(Leases, NeedTimesThatAClockCanShow) {
  const auto withTimes = [](const std::string& _since, const std::string& _until, const std::string& _untilUptime) {
    return "{\"leases\":[{\"classes\":[\"A\"],\"since\":" + _since + ",\"until\":" + _until +
           ",\"untilUptime\":" + _untilUptime + "}]}";
  };
  EXPECT_EQ(parseLeases(withTimes("0", "253402300799999", "0")).size(), 1U);
  for (const char* time :
       {"-9223372036854775808", "-1", "253402300800000", "18446744073709551615", "1e300", "\"1\"", "null"}) {
    EXPECT_TRUE(parseLeases(withTimes(time, "1", "1")).empty()) << time;
    EXPECT_TRUE(parseLeases(withTimes("1", time, "1")).empty()) << time;
    EXPECT_TRUE(parseLeases(withTimes("1", "1", time)).empty()) << time;
  }
}

TEST(Sweep, TakesOffWhatTheLeaseAdded) {
  const Swept swept = sweep("A;\nB;\nC;\n", {leaseFor({"B"}, 100), leaseFor({"C"}, 200)}, clocksAfter(100));
  EXPECT_EQ(swept.list, "A;\nC;\n");
  EXPECT_EQ(swept.ended, Names{"B"});
  ASSERT_EQ(swept.leases.size(), 1U);
  EXPECT_EQ(swept.leases[0].classes, Names{"C"});
}

TEST(Sweep, LeavesAClassThatAnotherLeaseStillHas) {
  const Swept swept = sweep("B;", {leaseFor({"B"}, 100), leaseFor({"B"}, 200)}, clocksAfter(100));
  EXPECT_EQ(swept.list, "B;");
  EXPECT_TRUE(swept.ended.empty());
}

TEST(Sweep, LeavesAnEntryThatSomebodyElseAdded) {
  EXPECT_EQ(sweep("B;A;B;", {leaseFor({"B"}, 100)}, clocksAfter(100)).list, "A;B;");
}

TEST(Sweep, ForgetsAClassThatSomebodyElseSwitchedOff) {
  const Swept swept = sweep("A;", {leaseFor({"B"}, 100)}, clocksAfter(0));
  EXPECT_EQ(swept.list, "A;");
  EXPECT_TRUE(swept.leases.empty());
}

TEST(Sweep, SwitchesEverythingOffByALineEnd) {
  EXPECT_EQ(sweep("B;", {leaseFor({"B"}, 100)}, clocksAfter(100)).list, "\n");
}

TEST(Leases, LoseTheClassesThatAreSwitchedForGood) {
  const auto left = withoutLeased({leaseFor({"A", "B"}, 100), leaseFor({"B"}, 100)}, {"B"});
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(left[0].classes, Names{"A"});
}

}  // namespace
