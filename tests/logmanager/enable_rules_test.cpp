// SPDX-License-Identifier: MIT
#include "logmanager/enable_rules.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/logmanager/counted_memory.h"

namespace {

using boost::logging::detail::EnableRules;
using boost::logging::detail::NamePattern;
using boost::logging::detail::SetUpCalls;
using boost::logging::detail::SwitchList;

constexpr int classCount = 100'000;

std::string className(int _class) { return "Class." + std::to_string(1'000'000 + _class); }

void enable(EnableRules& _rules, const std::string& _pattern, bool _enabled) {
  if (_pattern == "*") {
    SetUpCalls calls;
    calls.enable("*", _enabled);
    SwitchList list(calls);
    _rules.exchange(list);
    return;
  }
  _rules.prepare(NamePattern(_pattern));
  _rules.set(NamePattern(_pattern), _enabled);
}

TEST(EnableRules, TakeLittleMoreMemoryThanTheNamesOfTheirClasses) {
  EnableRules rules;
  const std::size_t before = testsupport::memoryInUse();
  for (int i = 0; i < classCount; ++i)
    enable(rules, className(i), i % 2 == 0);
  EXPECT_LT(testsupport::memoryInUse() - before, classCount * (className(0).size() + 22));
  for (int i = 0; i < classCount; ++i)
    ASSERT_EQ(rules.isEnabled(className(i) + ".below"), i % 2 == 0) << i;
}

TEST(EnableRules, TakeLittleMoreThanWhatIsNotedOfAList) {
  for (const std::string ending : {"", "*"}) {
    const std::size_t before = testsupport::memoryInUse();
    EnableRules rules;
    {
      SetUpCalls calls;
      calls.enable("*", false);
      for (int i = 0; i < classCount; ++i)
        calls.enable(className(i) + ending, true);
      SwitchList list(calls);
      rules.exchange(list);
    }
    EXPECT_LT(testsupport::memoryInUse() - before, classCount * (className(0).size() + 10)) << ending;
    EXPECT_EQ(rules.size(), classCount);
    EXPECT_TRUE(rules.isEnabled(className(7) + ".below"));
    EXPECT_FALSE(rules.isEnabled("Class.7"));
  }
}

TEST(EnableRules, TakeNoMemoryForACallForAllLogs) {
  EnableRules rules;
  const std::size_t before = testsupport::memoryInUse();
  enable(rules, "*", false);
  EXPECT_EQ(testsupport::memoryInUse(), before);
  EXPECT_FALSE(rules.isEnabled("App"));
}

TEST(EnableRules, DoNotKeepTheMemoryOfManyCallsForTheSakeOfFew) {
  const std::size_t before = testsupport::memoryInUse();
  EnableRules rules;
  {
    SetUpCalls calls;
    for (int i = 0; i < classCount; ++i) {
      calls.enable(i % 2 == 0 ? "*" : "App*", i % 3 == 0);
      calls.enable(className(i % 20), i % 3 == 1);
    }
    calls.enable("*", false);
    for (int i = 0; i < classCount; ++i)
      calls.enable(i % 2 == 0 ? "App*" : "Mod", i % 4 != 0);
    SwitchList list(calls);
    rules.exchange(list);
  }
  EXPECT_EQ(rules.size(), 2U);
  EXPECT_LT(testsupport::memoryInUse() - before, 10'000U);
  EXPECT_TRUE(rules.isEnabled("App"));
  EXPECT_TRUE(rules.isEnabled("Mod.below"));
  EXPECT_FALSE(rules.isEnabled(className(3)));
}

TEST(EnableRules, GiveBackTheMemoryOfALongListAfterShortOnes) {
  EnableRules rules;
  enable(rules, "*", false);
  rules.forgetOverruled();
  const std::size_t before = testsupport::memoryInUse();
  for (int i = 0; i < classCount; ++i)
    enable(rules, className(i), true);
  for (int round = 0; round < 3; ++round) {
    enable(rules, "*", false);
    enable(rules, "App", true);
    rules.forgetOverruled();
  }
  EXPECT_EQ(rules.size(), 1U);
  EXPECT_LT(testsupport::memoryInUse() - before, 10'000U);
  EXPECT_TRUE(rules.isEnabled("App.error"));
  EXPECT_FALSE(rules.isEnabled(className(1)));
}

TEST(EnableRules, StayRightWhereThereIsNoMemoryToForgetThem) {
  EnableRules rules;
  for (int i = 0; i < 1000; ++i)
    enable(rules, className(i), true);
  enable(rules, "*", false);
  enable(rules, className(500), true);
  enable(rules, "*", false);
  enable(rules, className(7), true);
  testsupport::failAllocation(0);
  rules.forgetOverruled();
  EXPECT_TRUE(testsupport::failAllocation(-1));
  EXPECT_EQ(rules.size(), 1000U);
  EXPECT_TRUE(rules.isEnabled(className(7)));
  EXPECT_FALSE(rules.isEnabled(className(500)));
  rules.forgetOverruled();
  EXPECT_EQ(rules.size(), 1U);
  EXPECT_TRUE(rules.isEnabled(className(7)));
}

TEST(EnableRules, TakeAStarInALogsNameAsACharacter) {
  EnableRules rules;
  enable(rules, "*", false);
  enable(rules, "a*b", true);
  EXPECT_TRUE(rules.isEnabled("a*b"));
  EXPECT_FALSE(rules.isEnabled("a*b.c"));
}

}  // namespace
