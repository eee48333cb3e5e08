// SPDX-License-Identifier: MIT
#include "tools/system/linux/process_text.h"

#include <gtest/gtest.h>

namespace {

using namespace toolsystem;

TEST(ProcessText, NamesTheStateOfAProcess) {
  EXPECT_EQ(activityOfStat("12 (a) S 1 2"), Activity::running);
  EXPECT_EQ(activityOfStat("12 (a) T 1 2"), Activity::stopped);
  EXPECT_EQ(activityOfStat("12 (a) t 1 2"), Activity::stopped);
  EXPECT_EQ(activityOfStat("12 (a) Z 1 2"), Activity::ended);
  EXPECT_EQ(activityOfStat("12 (a)"), Activity::ended);
  EXPECT_EQ(activityOfStat(""), Activity::ended);
}

TEST(ProcessText, KeepsBracketsAndBlanksOfAName) {
  EXPECT_EQ(nameOfStat("12 (a) T (b) S 1"), "a) T (b");
  EXPECT_EQ(activityOfStat("12 (a) T (b) S 1"), Activity::running);
  EXPECT_EQ(nameOfStat("12 () S 1"), "");
  EXPECT_EQ(nameOfStat("nothing"), "");
}

TEST(ProcessText, ReadsTheEffectiveUser) {
  EXPECT_EQ(effectiveUserId("Name:\tx\nUid:\t1\t2\t3\t4\nGid:\t5\n"), 2U);
  EXPECT_EQ(effectiveUserId("Name:\tUid: 7 7\n"), std::nullopt);
  EXPECT_EQ(effectiveUserId(""), std::nullopt);
}

TEST(ProcessText, SeesAUserAsItsContainerDoes) {
  const std::string own = "0 0 4294967295\n";
  EXPECT_EQ(mappedUserId(own, own, 1000), 1000U);
  EXPECT_EQ(mappedUserId("0 100000 65536\n", own, 100'000), 0U);
  EXPECT_EQ(mappedUserId("0 100000 10\n1000 1000 1\n", own, 1000), 1000U);
  EXPECT_EQ(mappedUserId("0 100000 65536\n", own, 5), 5U);
}

}  // namespace
