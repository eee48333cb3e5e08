// SPDX-License-Identifier: MIT
#include "logmanager/names/name_pattern.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/logmanager/names/name_pattern_oracle.h"

namespace {

using boost::logging::detail::NamePattern;
using testsupport::allTexts;
using testsupport::naiveMatch;
using testsupport::naiveSelects;

TEST(NamePattern, AgreesWithTheDefinitionForAllSmallPatternsAndNames) {
  const std::vector<std::string> names = allTexts("ab.", 5);
  for (const std::string& text : allTexts("ab.*", 5)) {
    const NamePattern pattern(text);
    for (const std::string& name : names) {
      ASSERT_EQ(pattern.selects(name), naiveSelects(text, name)) << '"' << text << "\" and \"" << name << '"';
    }
  }
}

TEST(NamePattern, SelectsTheLogAndThoseBelowItWithoutAStar) {
  EXPECT_TRUE(NamePattern("App").selects("App"));
  EXPECT_TRUE(NamePattern("App").selects("App.error"));
  EXPECT_TRUE(NamePattern("App").selects("App."));
  EXPECT_FALSE(NamePattern("App").selects("Apple"));
  EXPECT_FALSE(NamePattern("App").selects("app"));
  EXPECT_FALSE(NamePattern("App.error").selects("App"));
}

TEST(NamePattern, SelectsNothingBelowAMatchWithAStar) {
  EXPECT_TRUE(NamePattern("A*p").selects("App"));
  EXPECT_FALSE(NamePattern("A*p").selects("App.error"));
  EXPECT_TRUE(NamePattern("*").selects(""));
}

TEST(NamePattern, SelectsOnlyTheEmptyNameWhenItIsEmpty) {
  EXPECT_TRUE(NamePattern("").selects(""));
  EXPECT_FALSE(NamePattern("").selects(".a"));
  EXPECT_FALSE(NamePattern("").selects("a"));
}

TEST(NamePattern, ComparesBytes) {
  EXPECT_TRUE(NamePattern("\xC3*").selects("\xC3\xA4"));
  EXPECT_FALSE(NamePattern("\xC3\xA4").selects("\xC3\x84"));
  EXPECT_TRUE(NamePattern(std::string("a\0b", 3)).selects(std::string("a\0b", 3)));
}

TEST(NamePattern, TreatsAStarInANameAsACharacter) {
  EXPECT_TRUE(NamePattern("a*").selects("a*b"));
  EXPECT_FALSE(NamePattern("ab").selects("a*"));
}

TEST(NamePattern, DecidesHardPatternsInReasonableTime) {
  std::string pattern;
  for (int i = 0; i < 200; ++i)
    pattern += "*a";
  EXPECT_FALSE(NamePattern(pattern + "b").selects(std::string(20000, 'a')));
}

TEST(NamePattern, SelectsWhatOneOfItsGlobsMatches) {
  const std::vector<std::string> names = allTexts("a.", 5);
  for (const std::string& text : allTexts("a.*", 4)) {
    const NamePattern pattern(text);
    for (const std::string& name : names) {
      int matching = 0;
      for (const std::string& glob : pattern.globs())
        matching += naiveMatch(glob, name) ? 1 : 0;
      ASSERT_EQ(matching, pattern.selects(name) ? 1 : 0) << '"' << text << "\" and \"" << name << '"';
    }
  }
}

}  // namespace
