// SPDX-License-Identifier: MIT
#include "logmanager/switch_list.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "logmanager/callable.h"
#include "tests/logmanager/names/name_pattern_oracle.h"
#include "tests/logmanager/quiet_appender.h"

namespace {

using boost::logging::detail::CallableKind;
using boost::logging::detail::SetUpCalls;
using boost::logging::detail::SwitchList;

using Switches = std::vector<std::pair<std::string, bool>>;

SwitchList listOf(const Switches& _switches) {
  SetUpCalls calls;
  for (const auto& [pattern, isOn] : _switches)
    calls.enable(pattern, isOn);
  return SwitchList(calls);
}

TEST(SwitchList, IsEmptyWithoutACallForAllLogs) {
  for (const Switches& switches : {Switches{}, Switches{{"App", true}, {"A*", false}}}) {
    const SwitchList list = listOf(switches);
    EXPECT_EQ(list.forAll(), std::nullopt);
    EXPECT_EQ(list.find("App"), std::nullopt);
    EXPECT_EQ(list.size(), 0U);
  }
}

TEST(SwitchList, BeginsWithTheLatestCallForAllLogs) {
  const SwitchList list =
      listOf({{"Old", true}, {"*", true}, {"Old", true}, {"Old*", true}, {"*", false}, {"New", true}});
  EXPECT_EQ(list.forAll(), false);
  EXPECT_EQ(list.find("Old"), std::nullopt);
  EXPECT_EQ(list.find("New.below"), true);
  EXPECT_EQ(list.size(), 1U);
}

TEST(SwitchList, MayConsistOfACallForAllLogs) {
  const SwitchList list = listOf({{"*", true}});
  EXPECT_EQ(list.forAll(), true);
  EXPECT_EQ(list.find("App"), std::nullopt);
}

TEST(SwitchList, CountsAPatternOnce) {
  const SwitchList list = listOf({{"*", false}, {"App", true}, {"A*", true}, {"App", false}, {"A*", true}});
  EXPECT_EQ(list.size(), 2U);
  EXPECT_EQ(list.find("App"), true);
  EXPECT_EQ(list.find("Mod"), std::nullopt);
}

TEST(SwitchList, PassesOverCallsOfOtherKinds) {
  SetUpCalls calls;
  calls.enable("*", false);
  calls.disconnect("App", CallableKind::appender, "A");
  calls.enable("App", true);
  calls.connect("App", boost::logging::detail::makeAppender(&testsupport::quietAppender, "A", 100));
  calls.disconnect("*", CallableKind::modifier, "M");
  const SwitchList list(calls);
  EXPECT_EQ(list.find("App"), true);
  EXPECT_EQ(list.size(), 1U);
}

// The first call of all is at the place that also means "no place".
TEST(SwitchList, ForgetsTheFirstCallWhenItKeepsOnlyTheLatest) {
  Switches switches{{"First", true}, {"First*", true}, {"*", false}};
  for (int i = 0; i < 1000; ++i)
    switches.emplace_back(i % 2 == 0 ? "App" : "App*", i % 4 < 2);
  const SwitchList list = listOf(switches);
  EXPECT_EQ(list.size(), 2U);
  EXPECT_EQ(list.find("First"), std::nullopt);
  EXPECT_EQ(list.find("App"), false);
}

/// Without "." and "*".
std::vector<std::string> withEachOf(const std::vector<std::string>& _names, int _first, int _last) {
  std::vector<std::string> names;
  for (const std::string& name : _names) {
    for (int byte = _first; byte <= _last; ++byte) {
      if (byte != '.' && byte != '*') names.push_back(name + static_cast<char>(byte));
    }
  }
  return names;
}

// Repeated, so that there are more calls than names of up to two bytes; then more longer names than that.
TEST(SwitchList, HasRoomForEveryVeryShortName) {
  std::vector<std::string> names{""};
  const std::vector<std::string> ones = withEachOf(names, 0, 255);
  const std::vector<std::string> twos = withEachOf(ones, 0, 255);
  const std::vector<std::string> threes = withEachOf(withEachOf(withEachOf({""}, 'A', 'z'), 'A', 'z'), 'A', 'z');
  for (const auto& more : {ones, twos, threes})
    names.insert(names.end(), more.begin(), more.end());
  Switches switches{{"*", false}, {"longer", true}};
  for (const bool isOn : {false, true}) {
    for (std::size_t i = 0; i < names.size(); ++i)
      switches.emplace_back(names[i], (i % 2 == 0) == isOn);
  }
  const SwitchList list = listOf(switches);
  EXPECT_EQ(list.size(), names.size() + 1);
  for (std::size_t i = 0; i < names.size(); ++i)
    ASSERT_EQ(list.find(names[i]), i % 2 == 0) << i;
}

std::string randomPattern(std::mt19937& _random, const char* _characters) {
  std::string pattern;
  for (auto size = _random() % 6; size > 0; --size)
    pattern += _characters[_random() % 4];
  return pattern;
}

/// What the latest of the calls from the latest one for all on says of a name.
std::optional<bool> naiveFind(const Switches& _switches, const std::string& _name) {
  std::optional<bool> found;
  for (const auto& [pattern, isOn] : _switches) {
    if (pattern == "*") {
      found.reset();
    } else if (testsupport::naiveSelects(pattern, _name)) {
      found = isOn;
    }
  }
  return found;
}

// Few and many calls, so that it keeps all of them, or only the latest for each pattern.
TEST(SwitchList, AgreesWithACarryingOutOfTheCallsOneByOne) {
  std::mt19937 random(1);
  for (int round = 0; round < 300; ++round) {
    Switches switches{{"*", false}};
    const auto count = 1U << (random() % 10);
    for (unsigned int i = 0; i < count; ++i)
      switches.emplace_back(randomPattern(random, round % 2 == 0 ? "ab.*" : "a\xFF.*"), random() % 2 == 0);
    // Runs of "*" mean no more than one where they are noted.
    for (auto& [pattern, isOn] : switches) {
      while (pattern.find("**") != std::string::npos)
        pattern.erase(pattern.find("**"), 1);
    }
    const SwitchList list = listOf(switches);
    for (int i = 0; i < 50; ++i) {
      const std::string name = randomPattern(random, "ab.\xFF");
      ASSERT_EQ(list.find(name), naiveFind(switches, name)) << name;
    }
  }
}

}  // namespace
