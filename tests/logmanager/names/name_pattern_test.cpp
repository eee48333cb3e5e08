// SPDX-License-Identifier: MIT
#include "logmanager/names/name_pattern.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "tests/logmanager/names/name_pattern_oracle.h"

namespace {

using boost::logging::detail::NamePattern;
using testsupport::naiveSelects;

/// All texts of the characters up to the size.
std::vector<std::string> allTexts(const std::string& _characters, std::size_t _size) {
  std::vector<std::string> texts{""};
  for (std::size_t begin = 0, size = 1; size <= _size; ++size) {
    const std::size_t end = texts.size();
    for (std::size_t i = begin; i < end; ++i) {
      for (const char character : _characters)
        texts.push_back(texts[i] + character);
    }
    begin = end;
  }
  return texts;
}

TEST(NamePattern, SelectsWhatTheDefinitionSaysForAllSmallPatternsAndNames) {
  const std::vector<std::string> names = allTexts("ab.", 5);
  for (const std::string& text : allTexts("ab.*", 5)) {
    const NamePattern pattern(text);
    for (const std::string& name : names) {
      ASSERT_EQ(pattern.selects(name), naiveSelects(text, name)) << '"' << text << "\" and \"" << name << '"';
    }
  }
}

TEST(NamePattern, WithoutStarSelectsTheLogAndThoseBelowIt) {
  EXPECT_TRUE(NamePattern("App").selects("App"));
  EXPECT_TRUE(NamePattern("App").selects("App.error"));
  EXPECT_TRUE(NamePattern("App").selects("App."));
  EXPECT_FALSE(NamePattern("App").selects("Apple"));
  EXPECT_FALSE(NamePattern("App").selects("app"));
  EXPECT_FALSE(NamePattern("App.error").selects("App"));
}

TEST(NamePattern, WithStarDoesNotSelectWhatLiesBelow) {
  EXPECT_TRUE(NamePattern("A*p").selects("App"));
  EXPECT_FALSE(NamePattern("A*p").selects("App.error"));
  EXPECT_TRUE(NamePattern("*").selects(""));
}

TEST(NamePattern, ThatIsEmptySelectsOnlyTheEmptyName) {
  EXPECT_TRUE(NamePattern("").selects(""));
  EXPECT_FALSE(NamePattern("").selects(".a"));
  EXPECT_FALSE(NamePattern("").selects("a"));
}

TEST(NamePattern, ComparesBytes) {
  EXPECT_TRUE(NamePattern("\xC3*").selects("\xC3\xA4"));
  EXPECT_FALSE(NamePattern("\xC3\xA4").selects("\xC3\x84"));
  EXPECT_TRUE(NamePattern(std::string("a\0b", 3)).selects(std::string("a\0b", 3)));
}

TEST(NamePattern, TakesAStarInANameAsACharacter) {
  EXPECT_TRUE(NamePattern("a*").selects("a*b"));
  EXPECT_FALSE(NamePattern("ab").selects("a*"));
}

TEST(NamePattern, DecidesHardPatternsInReasonableTime) {
  std::string pattern;
  for (int i = 0; i < 200; ++i)
    pattern += "*a";
  EXPECT_FALSE(NamePattern(pattern + "b").selects(std::string(20000, 'a')));
}

/// The names up to 6 characters that a pattern of up to 3 selects, c standing for every character that is in none.
std::set<std::string> selectedNames(const std::string& _pattern, const std::vector<std::string>& _names) {
  std::set<std::string> selected;
  for (const std::string& name : _names) {
    if (naiveSelects(_pattern, name)) selected.insert(name);
  }
  return selected;
}

TEST(NamePattern, KnowsWhichPatternsItCoversAndMeets) {
  const std::vector<std::string> names = allTexts("ac.", 6);
  const std::vector<std::string> patterns = allTexts("a.*", 3);
  std::vector<std::set<std::string>> selected;
  for (const std::string& pattern : patterns)
    selected.push_back(selectedNames(pattern, names));
  for (std::size_t i = 0; i < patterns.size(); ++i) {
    for (std::size_t j = 0; j < patterns.size(); ++j) {
      const bool covers = std::includes(selected[i].begin(), selected[i].end(), selected[j].begin(), selected[j].end());
      std::vector<std::string> common;
      std::set_intersection(selected[i].begin(), selected[i].end(), selected[j].begin(), selected[j].end(),
                            std::back_inserter(common));
      const NamePattern one(patterns[i]);
      const NamePattern other(patterns[j]);
      ASSERT_EQ(one.covers(other), covers) << '"' << patterns[i] << "\" and \"" << patterns[j] << '"';
      ASSERT_EQ(one.meets(other), !common.empty()) << '"' << patterns[i] << "\" and \"" << patterns[j] << '"';
    }
  }
}

}  // namespace
