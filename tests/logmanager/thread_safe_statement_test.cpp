// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <ios>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "boost/logging/logging.hpp"
#include "tests/logmanager/appenders/wrapped_appender.h"

namespace {

using boost::logging::ts_appender;
using testsupport::Wrapped;

/// A long text that its operator puts into the stream piece by piece.
struct Pieces {
  static constexpr int count = 200000;
  static constexpr char piece[] = "0123456789";
};

std::ostream& operator<<(std::ostream& _stream, const Pieces& /*_pieces*/) {
  for (int i = 0; i < Pieces::count; ++i)
    _stream << Pieces::piece;
  return _stream;
}

/// A log of its own whose only appender is a ts_appender, with the modifiers of the default logs.
class ThreadSafeStatement : public testing::Test {
 protected:
  ThreadSafeStatement() {
    boost::logging::flush_log_cache();
    boost::logging::default_log_manager& manager = boost::logging::get_default_log_manager();
    boost::logging::add_appender(manager, name_, ts_appender(wrapped_.appender(), 0), "A", 100);
    boost::logging::add_modifier(manager, name_, &boost::logging::prepend_prefix, "M", 100);
    boost::logging::add_modifier(manager, name_, &boost::logging::append_enter, "M", 100);
  }
  ~ThreadSafeStatement() override {
    boost::logging::del_appender(boost::logging::get_default_log_manager(), name_, "A");
    boost::logging::del_modifier(boost::logging::get_default_log_manager(), name_, "M");
  }

  Wrapped wrapped_;
  const std::string name_ = testing::UnitTest::GetInstance()->current_test_info()->name();
  const boost::logging::logger log_{name_};
};

TEST_F(ThreadSafeStatement, WritesTheSameLinesForMessagesOfEveryLength) {
  std::string expected;
  for (int i = 0; i < 3000; ++i) {
    const std::string text(static_cast<std::size_t>(i % 7 == 0 ? i * 11 : i % 300), 'x');
    QMRK_LOG(log_) << i << ' ' << text << ' ' << 1.5 << std::hex << 255;
    log_.write(text);
    expected += "[" + name_ + "] " + std::to_string(i) + " " + text + " 1.5ff\n[" + name_ + "] " + text + "\n";
  }
  EXPECT_TRUE(wrapped_.waitForText(expected.size()) == expected);
}

TEST_F(ThreadSafeStatement, DeliversALongMessageOfManyPieces) {
  std::string expected = "[" + name_ + "] ";
  for (int i = 0; i < Pieces::count; ++i)
    expected += Pieces::piece;
  QMRK_LOG(log_) << Pieces();
  expected += "\n";
  EXPECT_TRUE(wrapped_.waitForText(expected.size()) == expected);
}

TEST_F(ThreadSafeStatement, SeparatesTheMessagesOfNestedStatements) {
  const auto inner = [this] {
    QMRK_LOG(log_) << "inner";
    return 1;
  };
  QMRK_LOG(log_) << "outer " << inner() << " end";
  const std::string front = "[" + name_ + "] ";
  EXPECT_EQ(wrapped_.waitForText(2 * front.size() + 18), front + "inner\n" + front + "outer 1 end\n");
}

TEST_F(ThreadSafeStatement, DeliversNothingOfAStatementThatThrows) {
  const auto fail = []() -> int { throw std::runtime_error("no value"); };
  EXPECT_THROW(QMRK_LOG(log_) << "lost " << fail(), std::runtime_error);
  QMRK_LOG(log_) << "next";
  const std::string line = "[" + name_ + "] next\n";
  EXPECT_EQ(wrapped_.waitForText(line.size()), line);
}

TEST_F(ThreadSafeStatement, SendsAMessageBegunBeforeAChangeThroughTheNewSetUp) {
  Wrapped other;
  const auto change = [this, &other] {
    boost::logging::default_log_manager& manager = boost::logging::get_default_log_manager();
    boost::logging::del_appender(manager, name_, "A");
    boost::logging::add_appender(manager, name_, other.appender(), "A", 100);
    return "changed";
  };
  QMRK_LOG(log_) << change();
  const std::string line = "[" + name_ + "] changed\n";
  EXPECT_EQ(other.waitForText(line.size()), line);
}

// A thread logs only after it has seen that the one before has; so its line stands behind. A busy machine takes long to
// pass the turn on: then fewer are enough.
TEST_F(ThreadSafeStatement, KeepsTheOrderOfThreadsThatTakeTurns) {
  constexpr int threadCount = 3;
  constexpr int turnCount = 30000;
  constexpr int over = turnCount;
  const auto enough = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  std::atomic<int> turn{0};
  int logged = 0;
  std::vector<std::thread> threads;
  for (int number = 0; number < threadCount; ++number) {
    threads.emplace_back([this, &turn, &logged, number, enough] {
      for (int next = number; next < turnCount; next += threadCount) {
        int now = 0;
        while ((now = turn.load(std::memory_order_acquire)) != next && now != over)
          std::this_thread::yield();
        if (now == over) return;
        QMRK_LOG(log_) << next;
        logged = next + 1;
        turn.store(std::chrono::steady_clock::now() < enough ? logged : over, std::memory_order_release);
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  std::string expected;
  for (int i = 0; i < logged; ++i)
    expected += "[" + name_ + "] " + std::to_string(i) + "\n";
  EXPECT_GT(logged, threadCount);
  EXPECT_TRUE(wrapped_.waitForText(expected.size()) == expected);
}

}  // namespace
