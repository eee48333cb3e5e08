// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <thread>

#include "boost/logging/logging.hpp"
#include "tests/logmanager/counted_memory.h"

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
TEST(HeldSetUp, DoesNotHoldUpAStatementWhereverItIs) {
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

}  // namespace
