// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "boost/logging/logging.hpp"
#include "logmanager/callable.h"
#include "logmanager/default_log_manager.h"
#include "tests/logmanager/counted_memory.h"

namespace {

namespace bl = boost::logging;
using bl::default_log_manager;
using bl::detail::CallableKind;

void nothing(const std::string& /*_log*/, const std::string& /*_message*/) {}

/// A set-up as an application makes it again and again, with removals that take away in part.
void oneRound(default_log_manager& _manager) {
  _manager.disconnect("*", CallableKind::appender, "A");
  _manager.disconnect("*", CallableKind::modifier, "M");
  _manager.connect("*", bl::detail::makeModifier(&bl::append_enter, "M", 100));
  _manager.connect("*", bl::detail::makeAppender(&nothing, "A", 100));
  _manager.connect("App.*", bl::detail::makeAppender(&nothing, "A", 100));
  _manager.disconnect("App.quiet*", CallableKind::appender, "A");
  _manager.disconnect("*.quiet", CallableKind::appender, "A");
  _manager.disconnect("Mod", CallableKind::appender, "A");
  _manager.enable("*", false);
  for (const char* const name : {"App", "App.error", "*.info", "Mod*", "A*z"})
    _manager.enable(name, true);
}

TEST(Growth, TenThousandRoundsLeaveTheMemoryOfOneRound) {
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

TEST(Growth, TenThousandRoundsLeaveTheCostOfCreatingALog) {
  default_log_manager manager;
  oneRound(manager);
  const std::int64_t before = creationTime(manager, "App.before.");
  for (int i = 0; i < 10000; ++i)
    oneRound(manager);
  EXPECT_LT(creationTime(manager, "App.after."), 5 * before + 1000);
}

}  // namespace
