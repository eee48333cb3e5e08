// SPDX-License-Identifier: MIT
#include "logmanager/modifiers/time_stamp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

using boost::logging::detail::TimeFormat;
using boost::logging::detail::TimeStamp;
using testing::ElementsAre;

std::string formatted(const std::string& _format) { return TimeFormat(_format).text({2026, 11, 21, 10, 2, 3, 45}); }

TEST(TimeFormat, ReplacesEveryPlaceholder) {
  EXPECT_EQ(formatted("$yyyy$MM$dd $hh:$mm:$ss.$mss "), "20261121 10:02:03.045 ");
  EXPECT_EQ(formatted("$mss$mss$mm"), "04504502");
}

TEST(TimeFormat, KeepsOtherTextAsItStands) {
  EXPECT_EQ(formatted(""), "");
  EXPECT_EQ(formatted("yyyy"), "yyyy");
  EXPECT_EQ(formatted("$"), "$");
  EXPECT_EQ(formatted("$$ss$"), "$03$");
  EXPECT_EQ(formatted("$yyy $YYYY $m $ms $MS $s"), "$yyy $YYYY $m $ms $MS $s");
  EXPECT_EQ(formatted("$ddd$hhh"), "21d10h");
  EXPECT_EQ(formatted("100%d\n"), "100%d\n");
}

TEST(TimeFormat, KnowsWhereTheMillisecondsStand) {
  EXPECT_THAT(TimeFormat("$yyyy.$mss $mss").millisecondPlaces(), ElementsAre(5, 9));
  EXPECT_TRUE(TimeFormat("$ss").millisecondPlaces().empty());
}

TEST(TimeFormat, PadsWithZeros) { EXPECT_EQ(TimeFormat("$yyyy-$dd").text({7, 1, 2, 0, 0, 0, 0}), "0007-02"); }

TEST(TimeStamp, ShowsTheTimeWheneverAndHoweverLong) {
  constexpr std::int64_t now = 1795255200123;
  constexpr std::int64_t year10000 = 253402300800000;
  for (const std::string& format : {std::string("$yyyy $mss"), std::string(80, '-') + "$ss.$mss", std::string("$ss")}) {
    const TimeStamp stamp(format);
    boost::logging::detail::ThreadState::TimeText latest;
    std::string memory;
    for (const std::int64_t time : {now, now + 1, now, now + 900, -now, -now + 1, std::int64_t{-1}, std::int64_t{0},
                                    year10000 + now, year10000 + now + 1, -year10000 / 2, now}) {
      EXPECT_EQ(stamp.text(time, latest, memory), TimeFormat(format).text(platform::toLocalTime(time)))
          << format << ' ' << time;
    }
  }
}

}  // namespace
