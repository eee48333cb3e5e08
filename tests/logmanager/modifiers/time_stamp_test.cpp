// SPDX-License-Identifier: MIT
#include "logmanager/modifiers/time_stamp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using boost::logging::detail::TimeFormat;
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

}  // namespace
