// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <set>
#include <string>

#include "logmanager/log_registry.h"
#include "logmanager/names/glob.h"
#include "logmanager/names/glob_index.h"
#include "tests/support/running_system.h"

namespace {

using boost::logging::detail::GlobIndex;
using boost::logging::detail::globMatches;
using boost::logging::detail::globsMeet;
using boost::logging::detail::Log;
using boost::logging::detail::LogRegistry;
using boost::logging::detail::NamePattern;

std::string randomText(std::mt19937& _random, const std::string& _characters) {
  std::string text;
  for (auto size = _random() % 7; size > 0; --size)
    text += _characters[_random() % _characters.size()];
  return text;
}

TEST(LogRegistry, FindsTheLogsThatAPatternSelects) {
  std::mt19937 random(1);
  LogRegistry registry;
  std::set<std::string> names;
  for (int i = 0; i < 500; ++i) {
    const std::string name = randomText(random, "ab.*");
    if (names.insert(name).second) registry.create(name, true, nullptr);
  }
  EXPECT_EQ(registry.size(), names.size());
  for (int i = 0; i < 3000; ++i) {
    const std::string text = randomText(random, "ab.*");
    const NamePattern pattern(text);
    std::multiset<std::string> expected;
    for (const std::string& name : names) {
      if (pattern.selects(name)) expected.insert(name);
    }
    std::multiset<std::string> found;
    registry.forEachSelected(pattern, [&found](const Log& _log) { found.insert(_log.name); });
    ASSERT_EQ(found, expected) << pattern.text();
  }
}

TEST(LogRegistry, FindsALogByItsName) {
  LogRegistry registry;
  EXPECT_EQ(registry.find(""), nullptr);
  Log& log = registry.create("", true, nullptr);
  EXPECT_EQ(registry.find(""), &log);
  EXPECT_EQ(registry.find("a"), nullptr);
}

TEST(LogRegistry, AcceptsNamesWithManyDots) {
  LogRegistry registry;
  const std::string name(100000, '.');
  registry.create(name, true, nullptr);
  int found = 0;
  registry.forEachSelected(NamePattern(std::string(50000, '.')), [&found](const Log&) { ++found; });
  EXPECT_EQ(found, 1);
}

/// The globs that a search of the index comes upon.
template <typename Search>
std::set<std::string> found(Search _search) {
  std::set<std::string> globs;
  const bool isFound = _search([&globs](const std::string& _glob) {
    globs.insert(_glob);
    return false;
  });
  EXPECT_FALSE(isFound);
  return globs;
}

template <typename Predicate>
std::set<std::string> those(const std::set<std::string>& _globs, Predicate _predicate) {
  std::set<std::string> those;
  std::ranges::copy_if(_globs, std::inserter(those, those.end()), _predicate);
  return those;
}

TEST(GlobIndex, FindsGlobsThatMatchOrMeet) {
  std::mt19937 random(2);
  GlobIndex<std::string> index;
  std::set<std::string> globs;
  for (int i = 0; i < testsupport::rounds(4000); ++i) {
    const std::string glob = randomText(random, "ab.*");
    if (random() % 4 == 0) {
      index.erase(glob);
      globs.erase(glob);
    } else {
      index.at(glob) = glob;
      globs.insert(glob);
    }
    ASSERT_EQ(index.size(), globs.size());
    const std::string text = randomText(random, i % 2 == 0 ? "ab." : "ab.*");
    ASSERT_EQ(found([&](auto _test) { return index.anyMatching(text, _test); }),
              those(globs, [&text](const std::string& _glob) { return globMatches(_glob, text); }))
        << text;
    ASSERT_EQ(found([&](auto _test) { return index.anyMatchedBy(text, _test); }),
              those(globs, [&text](const std::string& _glob) { return globMatches(text, _glob); }))
        << text;
    ASSERT_EQ(found([&](auto _test) { return index.anyMeeting(text, _test); }),
              those(globs, [&text](const std::string& _glob) { return globsMeet(text, _glob); }))
        << text;
  }
  index.eraseIf([](const std::string& _glob) { return _glob.empty() || _glob[0] != 'a'; });
  std::erase_if(globs, [](const std::string& _glob) { return _glob.empty() || _glob[0] != 'a'; });
  EXPECT_EQ(found([&](auto _test) { return index.anyMatchedBy("*", _test); }), globs);
  EXPECT_EQ(index.size(), globs.size());
}

TEST(GlobIndex, EndsASearchAtTheFirstMatch) {
  GlobIndex<int> index;
  for (const char* const glob : {"a*", "*", "ab", "*b"})
    index.at(glob) = 1;
  int calls = 0;
  const auto accept = [&calls](int) { return ++calls == 1; };
  EXPECT_TRUE(index.anyMatching("ab", accept));
  EXPECT_EQ(calls, 1);
  EXPECT_FALSE(index.anyMatching("b.", [](int) { return false; }));
}

}  // namespace
