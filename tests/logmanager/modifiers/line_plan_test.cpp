// SPDX-License-Identifier: MIT
#include "logmanager/modifiers/line_plan.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/threads/thread_state.h"

namespace {

namespace bl = boost::logging;
using bl::detail::LinePlan;
using Modifiers = std::vector<bl::detail::SharedCallable>;

void addStars(const std::string& /*_logName*/, std::string& _message) { _message = "*" + _message + "*"; }

const std::vector<bl::modifier>& kinds() {
  static const auto* const all =
      new std::vector<bl::modifier>{bl::prepend_time_ms("$mss "), bl::prepend_time_ms(std::string(80, '-') + "$ss "),
                                    &bl::prepend_prefix, &bl::append_enter, &addStars};
  return *all;
}

/// All rows of up to so many modifiers.
std::vector<Modifiers> allRows(std::size_t _size) {
  std::vector<Modifiers> rows{{}};
  for (std::size_t first = 0; _size-- > 0;) {
    const std::size_t end = rows.size();
    for (; first < end; ++first) {
      for (const bl::modifier& kind : kinds()) {
        rows.push_back(rows[first]);
        rows.back().push_back(bl::detail::makeModifier(kind, "m", 100));
      }
    }
  }
  return rows;
}

LinePlan planOf(const Modifiers& _modifiers) {
  LinePlan plan;
  for (const bl::detail::SharedCallable& modifier : _modifiers)
    plan.add(modifier->modify);
  return plan;
}

std::string oneByOne(const Modifiers& _modifiers, std::string _message) {
  for (const bl::detail::SharedCallable& modifier : _modifiers)
    modifier->modify("App.error", _message);
  return _message;
}

TEST(LinePlan, AgreesWithTheModifiersOneByOne) {
  const bl::detail::MessageScope scope(bl::detail::threadState(), 1795255200123);
  std::string line = "what it held before, which may be longer than the line";
  for (const Modifiers& modifiers : allRows(5)) {
    const LinePlan plan = planOf(modifiers);
    if (!plan.isUsable()) continue;
    for (const std::string message : {"", "text"}) {
      plan.makeLine(bl::detail::threadState(), "App.error", message, line);
      EXPECT_EQ(line, oneByOne(modifiers, message));
    }
  }
}

TEST(LinePlan, CoversTheModifiersOfTheDefaultLogsAndNoOthers) {
  const auto usable = [](const std::vector<bl::modifier>& _modifiers) {
    Modifiers modifiers;
    for (const bl::modifier& modifier : _modifiers)
      modifiers.push_back(bl::detail::makeModifier(modifier, "m", 100));
    return planOf(modifiers).isUsable();
  };
  const bl::modifier time = bl::prepend_time_ms("$mss ");
  EXPECT_TRUE(usable({}));
  EXPECT_TRUE(usable({time, &bl::prepend_prefix, &bl::append_enter}));
  EXPECT_FALSE(usable({time, time}));
  EXPECT_FALSE(usable({time, &addStars, &bl::append_enter}));
  EXPECT_FALSE(usable({&bl::prepend_prefix, &bl::prepend_prefix, &bl::prepend_prefix, time, &bl::prepend_prefix}));
}

// Line feeds may stand anywhere among the modifiers, and a time has the same text as another one of its format.
TEST(LinePlan, EqualsThePlansThatMakeTheSameLinesAndNoOthers) {
  const bl::detail::MessageScope scope(bl::detail::threadState(), 1795255200123);
  std::vector<Modifiers> rows = allRows(3);
  rows.push_back({bl::detail::makeModifier(bl::prepend_time_ms("$mss "), "m", 100)});
  std::erase_if(rows, [](const Modifiers& _row) { return !planOf(_row).isUsable(); });
  for (const Modifiers& one : rows) {
    for (const Modifiers& other : rows)
      EXPECT_EQ(planOf(one) == planOf(other), oneByOne(one, "text") == oneByOne(other, "text"));
  }
}

}  // namespace
