// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/callable_set.h"
#include "logmanager/context.h"
#include "logmanager/early_messages.h"
#include "logmanager/log.h"
#include "tests/logmanager/counted_memory.h"
#include "tests/logmanager/recorder.h"

namespace {

namespace bl = boost::logging;
using testsupport::HeldAllocation;

void ignoreMessage(const std::string& /*_log*/, const std::string& /*_message*/) {}

/// Logs while a set-up call waits in the middle of it.
/// @return whether the statement ended meanwhile.
bool logsBeside(const bl::logger& _log, HeldAllocation& _held) {
  std::atomic<bool> isDone{false};
  std::thread setUp([&] {
    testsupport::holdAllocation(&_held);
    bl::add_appender(bl::get_default_log_manager(), "Held", &ignoreMessage, "A", 100);
    testsupport::holdAllocation(nullptr);
    isDone = true;
  });
  while (!_held.isHeld && !isDone)
    std::this_thread::yield();
  std::future<void> statement = std::async(std::launch::async, [&_log] { QMRK_LOG(_log) << "message"; });
  const bool isLogged = statement.wait_for(std::chrono::seconds(20)) == std::future_status::ready;
  _held.isReleased = true;
  setUp.join();
  return isLogged;
}

// The lock of the manager is held at some of the allocations that a set-up call makes.
TEST(HeldSetUp, HoldsNoStatementUpWhereverItStops) {
  bl::flush_log_cache();
  const bl::logger log("Held.log");
  int places = 0;
  for (bool isOver = false; !isOver; ++places) {
    HeldAllocation held;
    held.after = places;
    ASSERT_TRUE(logsBeside(log, held)) << "at allocation " << places;
    isOver = !held.isHeld;
  }
  EXPECT_GT(places, 5);
  bl::del_appender(bl::get_default_log_manager(), "*", "A");
}

/// Replaces what the log has and switches it off and on, in one change that is held up at one of its allocations; the
/// log gets a message meanwhile.
/// @return the change was held up.
bool logsInsideAChange(const bl::logger& _log, int _place, std::atomic<int>& _delivered, std::atomic<int>& _malformed) {
  bl::default_log_manager& manager = bl::get_default_log_manager();
  HeldAllocation held;
  held.after = _place;
  std::atomic<bool> isDone{false};
  std::thread setUp([&] {
    testsupport::holdAllocation(&held);
    bl::set_up_change change(manager);
    bl::enable_logs(manager, "*", bl::level_off);
    bl::del_appender(manager, "*", "A");
    bl::del_modifier(manager, "*", "M");
    bl::add_modifier(
        manager, "*", [](const std::string&, std::string& _text) { _text += '1'; }, "M", 100);
    bl::add_modifier(
        manager, "*", [](const std::string&, std::string& _text) { _text += '2'; }, "M", 100);
    bl::add_appender(
        manager, "Held",
        [&](const std::string&, const std::string& _text) { ++(_text == "m12" ? _delivered : _malformed); }, "A", 100);
    bl::enable_logs(manager, "Held", bl::level_on);
    change.apply();
    testsupport::holdAllocation(nullptr);
    isDone = true;
  });
  while (!held.isHeld && !isDone)
    std::this_thread::yield();
  QMRK_LOG(_log) << 'm';
  held.isReleased = true;
  setUp.join();
  return held.isHeld;
}

TEST(HeldSetUp, LosesNoMessageWhereverAChangeStops) {
  bl::flush_log_cache();
  const bl::logger log("Held.other");
  std::atomic<int> delivered{0};
  std::atomic<int> malformed{0};
  logsInsideAChange(log, -1, delivered, malformed);
  int logged = 1;
  for (int place = 0; logsInsideAChange(log, place, delivered, malformed); ++place)
    ++logged;
  EXPECT_EQ(malformed, 0);
  EXPECT_EQ(delivered, logged + 1);
  EXPECT_GT(logged, 30);
  bl::del_appender(bl::get_default_log_manager(), "*", "A");
  bl::del_modifier(bl::get_default_log_manager(), "*", "M");
  bl::enable_logs(bl::get_default_log_manager(), "*", bl::level_on);
}

/// Takes every context that is free, so that the next statement of the thread allocates one.
std::vector<bl::detail::Context*> takeAllContexts(const bl::detail::Log& _log) {
  std::vector<bl::detail::Context*> contexts;
  for (bool isNew = false; !isNew;) {
    contexts.reserve(contexts.size() + 1);
    const std::size_t before = testsupport::memoryInUse();
    contexts.push_back(&bl::detail::enterContext(_log));
    isNew = testsupport::memoryInUse() != before;
  }
  return contexts;
}

/// Flushes a message of a log that gets another appender and goes off, as one change does it, while the flush waits at
/// one of its allocations.
/// @return whether it waited.
bool flushesAcrossAChange(int _place, const bl::appender& _former, const bl::appender& _next) {
  bl::detail::Log log(
      "l", true, std::make_unique<bl::detail::CallableSet>(std::vector{bl::detail::makeAppender(_former, "A", 0)}));
  bl::detail::EarlyMessages early;
  HeldAllocation held;
  held.after = _place;
  std::atomic<bool> isDone{false};
  std::thread flush([&] {
    early.keep(log, "m");
    std::vector<bl::detail::Context*> others = takeAllContexts(log);
    testsupport::holdAllocation(&held);
    early.flush();
    testsupport::holdAllocation(nullptr);
    for (; !others.empty(); others.pop_back())
      bl::detail::leaveContext(*others.back());
    isDone = true;
  });
  while (!held.isHeld && !isDone)
    std::this_thread::yield();
  const auto* const next = new bl::detail::CallableSet({bl::detail::makeAppender(_next, "A", 0)});
  log.enabled = false;
  const std::unique_ptr<const bl::detail::CallableSet> former(log.callables.exchange(next));
  held.isReleased = true;
  flush.join();
  return held.isHeld;
}

TEST(HeldFlush, GivesNoMessageToTheNewCallablesOfALogThatGoesOff) {
  const testsupport::Recorder former;
  const testsupport::Recorder next;
  int places = 0;
  while (flushesAcrossAChange(places, former.appender(), next.appender()))
    ++places;
  EXPECT_GT(places, 0);
  EXPECT_THAT(former.messages(), testing::Each("l|m"));
  EXPECT_THAT(next.messages(), testing::IsEmpty());
}

}  // namespace
