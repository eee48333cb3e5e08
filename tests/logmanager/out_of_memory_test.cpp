// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/default_log_manager.h"
#include "logmanager/early_messages.h"
#include "logmanager/message_cache.h"
#include "tests/logmanager/counted_memory.h"
#include "tests/logmanager/quiet_appender.h"
#include "tests/support/fault_plan.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace bl = boost::logging;
using bl::default_log_manager;
using bl::detail::CallableSet;
using bl::detail::Log;
using testsupport::quietAppender;

struct Outcome {
  /// There was an allocation of that number.
  bool hasFailed = false;
  /// The function did not do without it.
  bool hasThrown = false;
};

/// Lets one allocation of the function fail.
Outcome withoutMemoryAt(int _allocation, const std::function<void()>& _function) {
  Outcome outcome;
  testsupport::failAllocation(_allocation);
  try {
    _function();
  } catch (const std::bad_alloc&) {
    outcome.hasThrown = true;
  }
  outcome.hasFailed = testsupport::failAllocation(-1);
  return outcome;
}

std::size_t callableCount(const Log& _log) {
  const CallableSet* const callables = _log.callables;
  return callables == nullptr ? 0 : callables->modifiers.size() + callables->appenders.size();
}

void setUpTwoCallables(default_log_manager& _manager) {
  bl::add_appender(_manager, "*", &quietAppender, "A", 100);
  bl::add_modifier(_manager, "App", &bl::append_enter, "M", 100);
  bl::enable_logs(_manager, "App", bl::level_off);
}

TEST(OutOfMemory, LeavesNoLogWithoutItsCallables) {
  default_log_manager manager;
  setUpTwoCallables(manager);
  Outcome outcome{true, false};
  for (int allocation = 0; outcome.hasFailed; ++allocation) {
    const std::string name = "App.a.log.with.a.long.name." + std::to_string(allocation);
    const std::size_t before = manager.size().logs;
    outcome = withoutMemoryAt(allocation, [&] { manager.log(name); });
    EXPECT_EQ(manager.size().logs, before + (outcome.hasThrown ? 0 : 1));
    const Log& log = manager.log(name);
    EXPECT_EQ(callableCount(log), 2U) << "allocation " << allocation;
    EXPECT_FALSE(log.enabled);
    // Every pattern finds the one log.
    for (const std::string& pattern : {name, std::string("*"), std::string("App.a.*"), "*" + name.substr(5)}) {
      bl::enable_logs(manager, pattern, bl::level_on);
      EXPECT_TRUE(log.enabled) << pattern;
      bl::enable_logs(manager, "*", bl::level_off);
      EXPECT_FALSE(log.enabled);
    }
    EXPECT_EQ(&manager.log(name), &log);
  }
}

/// Nearly everything that a change can do.
void noteCalls(default_log_manager& _manager) {
  bl::enable_logs(_manager, "*", bl::level_off);
  bl::del_appender(_manager, "App.part", "A");
  bl::del_appender(_manager, "*.end", "A");
  bl::del_modifier(_manager, "*", "M");
  bl::add_modifier(_manager, "App.*", &bl::prepend_prefix, "M", 100);
  bl::add_appender(_manager, "App.part.below", &quietAppender, "a name that is longer than others", 100);
  bl::enable_logs(_manager, "App.part.below.the.pattern", bl::level_on);
  bl::enable_logs(_manager, "A*p.part*", bl::level_on);
}

/// Takes away what the same change has added, and what was there before.
void noteRepetitions(default_log_manager& _manager) {
  for (int round = 0; round < 2; ++round) {
    for (const char* const pattern : {"*", "App.part.below"}) {
      bl::del_appender(_manager, pattern, "A");
      bl::add_appender(_manager, pattern, &quietAppender, "A", 100);
    }
  }
}

/// What is to be seen of a manager.
std::vector<std::string> stateOf(default_log_manager& _manager, const std::string& _suffix) {
  std::vector<std::string> state;
  for (const char* const name : {"App", "App.part", "App.part.below", "App.other", "Other.end", "Other"}) {
    const Log& log = _manager.log(name + _suffix);
    state.push_back(log.name.substr(0, std::string(name).size()) + (log.enabled ? " on " : " off "));
    if (log.callables == nullptr) continue;
    for (const auto kind : {bl::detail::CallableKind::modifier, bl::detail::CallableKind::appender}) {
      for (const auto& callable : log.callables.load()->of(kind))
        state.back() += callable->name + ' ';
    }
  }
  return state;
}

TEST(OutOfMemory, LeavesEverythingUnchangedDuringAChange) {
  Outcome outcome{true, false};
  int allocation = 0;
  for (; outcome.hasFailed; ++allocation) {
    default_log_manager manager;
    setUpTwoCallables(manager);
    const std::vector<std::string> before = stateOf(manager, "");
    default_log_manager undisturbed;
    setUpTwoCallables(undisturbed);
    bl::set_up_change change(manager);
    noteCalls(manager);
    noteRepetitions(manager);
    outcome = withoutMemoryAt(allocation, [&change] { change.apply(); });
    if (outcome.hasThrown) {
      EXPECT_EQ(stateOf(manager, ""), before) << "allocation " << allocation;
      EXPECT_EQ(stateOf(manager, ".later"), stateOf(undisturbed, ".later"));
      change.apply();
    }
    noteCalls(undisturbed);
    noteRepetitions(undisturbed);
    EXPECT_EQ(stateOf(manager, ""), stateOf(undisturbed, "")) << "allocation " << allocation;
    EXPECT_EQ(stateOf(manager, ".afterwards"), stateOf(undisturbed, ".afterwards"));
    EXPECT_EQ(manager.size().rules, undisturbed.size().rules);
  }
  EXPECT_GT(allocation, 20);
}

TEST(OutOfMemory, ForgetsNoEarlierCallOfAChange) {
  Outcome outcome{true, false};
  for (int allocation = 0; outcome.hasFailed; ++allocation) {
    default_log_manager manager;
    const Log& log = manager.log("App");
    bl::set_up_change change(manager);
    bl::enable_logs(manager, "App", bl::level_off);
    outcome = withoutMemoryAt(allocation, [&manager] { noteCalls(manager); });
    bl::add_appender(manager, "App", &quietAppender, "A", 100);
    change.apply();
    EXPECT_FALSE(log.enabled);
    EXPECT_EQ(callableCount(log), 1U);
  }
}

TEST(OutOfMemory, WhileTheCacheIsFlushedEndsTheFlush) {
  Outcome outcome{true, false};
  for (int allocation = 0; outcome.hasFailed; ++allocation) {
    Log log("App");
    log.callables = new CallableSet({bl::detail::makeAppender(&quietAppender, "A", 100)});
    bl::detail::EarlyMessages early;
    early.keep(log, "dropped");
    early.keep(log, std::string(bl::detail::MessageCache::usualLimit, 'x'));
    testing::internal::CaptureStderr();
    outcome = withoutMemoryAt(allocation, [&early] { early.flush(); });
    testing::internal::GetCapturedStderr();
    EXPECT_FALSE(outcome.hasThrown) << "allocation " << allocation;
    EXPECT_FALSE(early.keep(log, "later")) << "allocation " << allocation;
    early.flush();
  }
}

// A statement would otherwise take the emptying that was given up for that of another process, and await its end.
TEST(OutOfMemory, HoldsUpNoStatementAfterAFileCouldNotBeEmptied) {
  const testsupport::TemporaryFolder folder;
  Outcome outcome{true, false};
  for (int allocation = 0; outcome.hasFailed; ++allocation) {
    const std::string path = folder.file("a_log_with_a_long_name_" + std::to_string(allocation));
    testsupport::writeFile(path, "before\n");
    const bl::write_to_file appender(path, true);
    outcome = withoutMemoryAt(allocation, [&appender] { appender("App", "1\n"); });
    bool hasWaited = false;
    const testsupport::CallHook wait(platform::Call::awaitSharedWord, 1, [&hasWaited] { hasWaited = true; });
    appender("App", "2\n");
    EXPECT_FALSE(hasWaited) << "allocation " << allocation;
    const std::string text = testsupport::replaced(testsupport::readFile(path), "\r\n", "\n");
    EXPECT_EQ(text, outcome.hasThrown ? "2\n" : "1\n2\n") << "allocation " << allocation;
  }
}

}  // namespace
