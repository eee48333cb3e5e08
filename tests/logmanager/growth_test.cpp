// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/default_log_manager.h"
#include "tests/logmanager/counted_memory.h"
#include "tests/logmanager/names/name_pattern_oracle.h"
#include "tests/logmanager/quiet_appender.h"

namespace {

namespace bl = boost::logging;
using bl::default_log_manager;
using testsupport::quietAppender;

/// A set-up as an application makes it again and again, with removals that take away in part.
void oneRound(default_log_manager& _manager) {
  bl::del_appender(_manager, "*", "A");
  bl::del_modifier(_manager, "*", "M");
  bl::add_modifier(_manager, "*", &bl::append_enter, "M", 100);
  bl::add_appender(_manager, "*", &quietAppender, "A", 100);
  bl::add_appender(_manager, "App.*", &quietAppender, "A", 100);
  bl::del_appender(_manager, "App.quiet*", "A");
  bl::del_appender(_manager, "*.quiet", "A");
  bl::del_appender(_manager, "Mod", "A");
  bl::enable_logs(_manager, "*", bl::level_off);
  for (const char* const name : {"App", "App.error", "*.info", "Mod*", "A*z"})
    bl::enable_logs(_manager, name, bl::level_on);
}

TEST(ManyRounds, LeaveTheMemoryOfOneRound) {
  default_log_manager manager;
  for (int i = 0; i < 20; ++i)
    manager.log("App.quiet" + std::to_string(i) + ".info");
  oneRound(manager);
  oneRound(manager);
  const default_log_manager::Size sizeBefore = manager.size();
  const std::size_t memoryBefore = testsupport::memoryInUse();
  for (int i = 0; i < 10000; ++i)
    oneRound(manager);
  EXPECT_EQ(manager.size().rules, sizeBefore.rules);
  EXPECT_EQ(manager.size().retired, 0U);
  EXPECT_EQ(testsupport::memoryInUse(), memoryBefore);
}

TEST(ManyRounds, KeepNoRuleOfNamesThatComeOnlyOnce) {
  default_log_manager manager;
  std::size_t most = 0;
  for (int i = 0; i < 1000; ++i) {
    bl::enable_logs(manager, "*", bl::level_off);
    bl::enable_logs(manager, "App" + std::to_string(i), bl::level_on);
    bl::enable_logs(manager, "*.Demo" + std::to_string(i), bl::level_on);
    most = std::max(most, manager.size().rules);
  }
  EXPECT_LT(most, 150U);
  EXPECT_TRUE(manager.log("App999").enabled);
  EXPECT_FALSE(manager.log("App998").enabled);
}

/// Both removals together take away what the addition adds, neither does alone.
void overlappingRound(default_log_manager& _manager) {
  bl::add_appender(_manager, "App", &quietAppender, "A", 100);
  bl::del_appender(_manager, "App.*", "A");
  bl::del_appender(_manager, "*App", "A");
}

/// The least time of creating one of some logs, in nanoseconds.
std::int64_t creationTime(default_log_manager& _manager, const std::string& _prefix) {
  using Clock = std::chrono::steady_clock;
  std::int64_t least = INT64_MAX;
  for (int i = 0; i < 200; ++i) {
    const std::string name = _prefix + std::to_string(i);
    const Clock::time_point begin = Clock::now();
    _manager.log(name);
    least = std::min<std::int64_t>(least, (Clock::now() - begin).count());
  }
  return least;
}

template <typename Round>
void expectCostOfOneRound(Round _round) {
  default_log_manager manager;
  _round(manager);
  _round(manager);
  const std::size_t rules = manager.size().rules;
  const std::size_t memory = testsupport::memoryInUse();
  const std::int64_t before = creationTime(manager, "App.before.");
  const std::size_t memoryOfLogs = testsupport::memoryInUse() - memory;
  for (int i = 0; i < 10000; ++i)
    _round(manager);
  EXPECT_EQ(manager.size().rules, rules);
  EXPECT_LE(testsupport::memoryInUse(), memory + memoryOfLogs + 10000);
  EXPECT_LT(creationTime(manager, "App.after."), 5 * before + 1000);
}

TEST(ManyRounds, LeaveTheCostOfCreatingALog) { expectCostOfOneRound(&oneRound); }

TEST(ManyRounds, LeaveTheCostOfOneRoundEvenIfRemovalsWorkOnlyTogether) { expectCostOfOneRound(&overlappingRound); }

/// Calls at random on few patterns and names, always the same ones for a seed.
class RandomRound {
 public:
  explicit RandomRound(unsigned int _seed) : random_(_seed) {
    // Some that overlap, whatever the others do.
    const std::string base(1 + random_() % 2, 'a');
    patterns_ = {base, base + ".*", "*" + base, text(), text()};
    for (int i = 0; i < 12; ++i)
      calls_.push_back(random_());
  }

  void operator()(default_log_manager& _manager) const {
    for (const unsigned int call : calls_) {
      const std::string& pattern = patterns_[call / 8 % patterns_.size()];
      const std::string name(1, static_cast<char>('A' + call / 4 % 2));
      if (call % 4 == 0) {
        bl::add_appender(_manager, pattern, &quietAppender, name, 100);
      } else if (call % 4 == 1) {
        bl::enable_logs(_manager, pattern, call % 8 == 1 ? bl::level_on : bl::level_off);
      } else {
        bl::del_appender(_manager, pattern, name);
      }
    }
  }

 private:
  std::string text() {
    std::string result;
    for (auto size = random_() % 5; size > 0; --size)
      result += "ab.*"[random_() % 4];
    return result;
  }

  std::mt19937 random_;
  std::vector<std::string> patterns_;
  std::vector<unsigned int> calls_;
};

/// How many callables some log has at most, of all that short patterns of a and b tell apart.
std::size_t mostCallables(default_log_manager& _manager) {
  std::size_t most = 0;
  for (const std::string& name : testsupport::allTexts("abc.", 5)) {
    const bl::detail::CallableSet* const callables = _manager.log(name).callables;
    if (callables != nullptr) most = std::max(most, callables->appenders.size());
  }
  return most;
}

// A round that leaves more appenders connected each time grows what the manager has to keep. All others must not.
TEST(ManyRounds, AddRulesOnlyWithTheCallablesOfALog) {
  constexpr int few = 20;
  constexpr int many = 300;
  int steady = 0;
  for (unsigned int seed = 0; seed < 200; ++seed) {
    const RandomRound round(seed);
    default_log_manager manager;
    for (int i = 0; i < few; ++i)
      round(manager);
    const std::size_t rules = manager.size().rules;
    for (int i = few; i < many; ++i)
      round(manager);
    if (mostCallables(manager) >= many - 1) continue;
    ++steady;
    EXPECT_EQ(manager.size().rules, rules) << "seed " << seed;
  }
  EXPECT_GT(steady, 40);
}

}  // namespace
