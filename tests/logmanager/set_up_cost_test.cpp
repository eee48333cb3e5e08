// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/default_log_manager.h"
#include "tests/logmanager/quiet_appender.h"
#include "tests/support/processor_time.h"

namespace {

namespace bl = boost::logging;
using bl::default_log_manager;
using testsupport::quietAppender;

/// A filter of classes: the pattern of each, and the name of a log that it selects.
struct Filter {
  const char* name;
  const char* beginning;
  const char* ending;

  std::string pattern(int _class) const { return beginning + std::to_string(_class) + ending; }
  std::string log(int _class) const {
    std::string name = pattern(_class);
    std::replace(name.begin(), name.end(), '*', 'x');
    return name;
  }
};

/// What the set-up library does with a filter and a list of classes that are on.
void setUp(default_log_manager& _manager, const std::vector<std::string>& _patterns) {
  for (const std::string& pattern : _patterns) {
    bl::del_appender(_manager, pattern, "file");
    bl::add_appender(_manager, pattern, &quietAppender, "file", 100);
  }
  bl::enable_logs(_manager, "*", bl::level_off);
  for (const std::string& pattern : _patterns)
    bl::enable_logs(_manager, pattern, bl::level_on);
}

/// The processor time of a call, in seconds. It is called until that has added up to more than the steps in which a
/// system counts it.
double costOf(const std::function<void()>& _call) {
  constexpr std::chrono::milliseconds enough{200};
  const auto begin = testsupport::processorTime();
  std::chrono::duration<double> used{0};
  int calls = 0;
  for (; used < enough; used = testsupport::processorTime() - begin) {
    _call();
    ++calls;
  }
  return used.count() / calls;
}

/// What a set-up costs after the first one.
/// @param _log the name of a log that the pattern of that number selects.
double costOfAnotherSetUp(const std::vector<std::string>& _patterns, const std::function<std::string(int)>& _log,
                          bool _isChange) {
  default_log_manager manager;
  for (std::size_t i = 0; i < _patterns.size(); ++i)
    manager.log(_log(static_cast<int>(i)));
  setUp(manager, _patterns);
  return costOf([&] {
    if (!_isChange) {
      setUp(manager, _patterns);
      return;
    }
    bl::set_up_change change(manager);
    setUp(manager, _patterns);
    change.apply();
  });
}

double costOfAnotherSetUp(const Filter& _filter, int _classes, bool _isChange) {
  std::vector<std::string> patterns;
  for (int i = 0; i < _classes; ++i)
    patterns.push_back(_filter.pattern(i));
  return costOfAnotherSetUp(
      patterns, [&_filter](int _class) { return _filter.log(_class); }, _isChange);
}

/// The same for a filter that consists of these patterns again and again.
double costOfRepetitions(const std::vector<std::string>& _patterns, int _times) {
  std::vector<std::string> all;
  for (int i = 0; i < _times; ++i)
    all.insert(all.end(), _patterns.begin(), _patterns.end());
  return costOfAnotherSetUp(
      all, [](int) { return std::string("Class"); }, true);
}

class SetUpCost : public testing::TestWithParam<Filter> {};

// Sixteen times the classes cost sixteen times as much, and some more for memory that is farther away; 256 times if
// each call looked at all rules or logs.
TEST_P(SetUpCost, GrowsWithTheClassesNotWithTheirSquare) {
  for (const bool isChange : {true, false}) {
    const double few = costOfAnotherSetUp(GetParam(), 500, isChange);
    const double many = costOfAnotherSetUp(GetParam(), 8000, isChange);
    RecordProperty(isChange ? "change" : "calls", std::to_string(many));
    EXPECT_LT(many, 64 * few) << GetParam().pattern(1) << ": " << few << " s and " << many << " s";
  }
}

INSTANTIATE_TEST_SUITE_P(Filters, SetUpCost,
                         testing::Values(Filter{"OfClasses", "Class", ""}, Filter{"OfSuffixes", "Class", ".info"},
                                         Filter{"WithAStarInside", "App.Class", ".*.info"},
                                         Filter{"WithAStarInFront", "*.Class", ""},
                                         Filter{"WithAStarBeforeTheClass", "App.*.Class", ".info"}),
                         [](const auto& _info) { return std::string(_info.param.name); });

// Each entry takes away what a former one has added in the same change.
TEST(RepeatedFilter, CostsAsMuchForEachOfManyRepetitionsAsForEachOfFew) {
  for (const std::vector<std::string>& patterns : {std::vector<std::string>{"Class"}, {"Class", "*.info", "Cl*s"}}) {
    const double few = costOfRepetitions(patterns, 500);
    const double many = costOfRepetitions(patterns, 8000);
    EXPECT_LT(many, 64 * few) << patterns.size() << " patterns: " << few << " s and " << many << " s";
  }
}

std::vector<bl::ts_appender> threadSafeAppenders(int _count) {
  std::vector<bl::ts_appender> appenders;
  for (int i = 0; i < _count; ++i)
    appenders.emplace_back(&quietAppender, 0, "app.log");
  return appenders;
}

/// What the replacement of all these appenders costs, as a set-up makes it.
double costOfReplacement(int _count) {
  std::vector<bl::ts_appender> current = threadSafeAppenders(_count);
  return costOf([&] {
    std::vector<bl::ts_appender> next = threadSafeAppenders(_count);
    current.swap(next);
    next.clear();
  });
}

TEST(ThreadSafeSetUp, CostsAsMuchForEachOfManyAppendersAsForEachOfFew) {
  const double few = costOfReplacement(500);
  const double many = costOfReplacement(16000);
  RecordProperty("appenders", std::to_string(many));
  EXPECT_LT(many, 128 * few) << few << " s and " << many << " s";
}

}  // namespace
