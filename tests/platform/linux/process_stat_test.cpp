// SPDX-License-Identifier: MIT
#include "platform/linux/process_stat.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using platform::startTimeOfStat;

TEST(ProcessStat, FindsTheStartBehindTheName) {
  const char rest[] = " S 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 4711 20 21\n";
  EXPECT_EQ(startTimeOfStat(std::string("12 (demo)") + rest), 4711U);
  EXPECT_EQ(startTimeOfStat(std::string("12 (a) R 1 (b c)") + rest), 4711U);
}

TEST(ProcessStat, HasNoStartForAProcessThatHasEnded) {
  EXPECT_EQ(startTimeOfStat("12 (demo) Z 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 4711 20\n"), 0U);
}

TEST(ProcessStat, HasNoStartInOtherText) {
  for (const char* text : {"", "12", "12 (demo)", "12 (demo) ", "12 (demo) S 1 2 3",
                           "12 (demo) S 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 x"}) {
    EXPECT_EQ(startTimeOfStat(text), 0U) << text;
  }
}

}  // namespace
