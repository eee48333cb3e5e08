// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>
#include <string>

#include "logmanager/log_registry.h"
#include "logmanager/names/rule_index.h"

namespace {

using boost::logging::detail::Log;
using boost::logging::detail::LogRegistry;
using boost::logging::detail::NamePattern;
using boost::logging::detail::RuleIndex;

std::string randomText(std::mt19937& _random, const std::string& _characters) {
  std::string text;
  for (auto size = _random() % 7; size > 0; --size)
    text += _characters[_random() % _characters.size()];
  return text;
}

TEST(LogRegistry, FindsByPatternTheLogsThatThePatternSelects) {
  std::mt19937 random(1);
  LogRegistry registry;
  std::set<std::string> names;
  for (int i = 0; i < 500; ++i) {
    const std::string name = randomText(random, "ab.*");
    if (names.insert(name).second) registry.create(name);
  }
  EXPECT_EQ(registry.size(), names.size());
  for (int i = 0; i < 3000; ++i) {
    const NamePattern pattern(randomText(random, "ab.*"));
    std::multiset<std::string> expected;
    for (const std::string& name : names) {
      if (pattern.selects(name)) expected.insert(name);
    }
    std::multiset<std::string> found;
    registry.forEachSelected(pattern, [&found](const Log& _log) { found.insert(_log.name); });
    ASSERT_EQ(found, expected) << pattern.text();
  }
}

TEST(LogRegistry, FindsByNameWhatWasCreated) {
  LogRegistry registry;
  EXPECT_EQ(registry.find(""), nullptr);
  Log& log = registry.create("");
  EXPECT_EQ(registry.find(""), &log);
  EXPECT_EQ(registry.find("a"), nullptr);
}

TEST(LogRegistry, TakesNamesOfManyDots) {
  LogRegistry registry;
  const std::string name(100000, '.');
  registry.create(name);
  int found = 0;
  registry.forEachSelected(NamePattern(std::string(50000, '.')), [&found](const Log&) { ++found; });
  EXPECT_EQ(found, 1);
}

TEST(RuleIndex, FindsByNameThePatternsThatSelectIt) {
  std::mt19937 random(2);
  RuleIndex<std::string> index;
  std::set<std::string> patterns;
  for (int i = 0; i < 4000; ++i) {
    const NamePattern pattern(randomText(random, "ab.*"));
    if (random() % 4 == 0) {
      index.erase(pattern);
      patterns.erase(pattern.text());
    } else {
      index.at(pattern) = pattern.text();
      patterns.insert(pattern.text());
    }
    ASSERT_EQ(index.size(), patterns.size());
    const std::string name = randomText(random, "ab.");
    std::multiset<std::string> expected;
    for (const std::string& text : patterns) {
      if (NamePattern(text).selects(name)) expected.insert(text);
    }
    std::multiset<std::string> found;
    index.forEachSelecting(name, [&found](const std::string& _text) { found.insert(_text); });
    ASSERT_EQ(found, expected) << name;
  }
  index.clear();
  EXPECT_EQ(index.size(), 0U);
}

}  // namespace
