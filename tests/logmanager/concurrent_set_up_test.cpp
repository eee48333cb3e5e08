// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/default_log_manager.h"

namespace {

namespace bl = boost::logging;

constexpr int threadCount = 8;

/// Runs the function in eight threads until the end of the object.
class BusyThreads {
 public:
  explicit BusyThreads(const std::function<void(int)>& _function) {
    for (int i = 0; i < threadCount; ++i) {
      threads_.emplace_back([this, _function, i] {
        while (!isOver_) {
          _function(i);
          ++rounds_;
        }
      });
    }
  }
  ~BusyThreads() {
    isOver_ = true;
    for (std::thread& thread : threads_)
      thread.join();
  }
  BusyThreads(const BusyThreads&) = delete;
  BusyThreads& operator=(const BusyThreads&) = delete;

  /// Returns when the threads have done so many rounds more.
  void waitForRounds(int _rounds) const {
    for (const long end = rounds_ + _rounds; rounds_ < end;)
      std::this_thread::yield();
  }

 private:
  std::atomic<bool> isOver_{false};
  std::atomic<long> rounds_{0};
  std::vector<std::thread> threads_;
};

TEST(ConcurrentSetUp, AppliesLevelsAgainWhileEightThreadsLog) {
  bl::flush_log_cache();
  bl::default_log_manager& manager = bl::get_default_log_manager();
  std::atomic<long> messages{0};
  bl::add_appender(
      manager, "P1", [&messages](const std::string&, const std::string&) { ++messages; }, "A", 100);
  {
    const BusyThreads threads([](int _thread) {
      const bl::logger log("P1." + std::to_string(_thread));
      for (int i = 0; i < 20; ++i)
        QMRK_LOG(log) << "message " << i;
      QMRK_LOG(bl::logger("P1.one")) << "more";
    });
    for (int round = 0; round < 200; ++round) {
      bl::enable_logs(manager, "*", bl::level_off);
      for (int i = 0; i < threadCount; i += 2)
        bl::enable_logs(manager, "P1." + std::to_string(i), bl::level_on);
      bl::enable_logs(manager, "*.one", bl::level_on);
      threads.waitForRounds(1);
    }
  }
  EXPECT_GT(messages, 0);
  EXPECT_TRUE(bl::logger("P1.0").is_enabled());
  EXPECT_FALSE(bl::logger("P1.1").is_enabled());
  bl::enable_logs(manager, "*", bl::level_on);
  bl::del_appender(manager, "*", "A");
}

/// One call removes two modifiers of one name: a message gets both of them or none.
TEST(ConcurrentSetUp, ShowsAStatementTheOldOrTheNewCallablesNeverAMix) {
  bl::flush_log_cache();
  bl::default_log_manager& manager = bl::get_default_log_manager();
  std::atomic<int> whole{0};
  std::atomic<int> none{0};
  std::atomic<int> mixed{0};
  const auto count = [&](const std::string&, const std::string& _message) {
    ++(_message == "-12" ? whole : _message == "-" || _message == "-1" ? none : mixed);
  };
  bl::add_appender(manager, "P2", count, "A", 100);
  {
    const BusyThreads threads([](int) { bl::logger("P2.log").write("-"); });
    for (int round = 0; round < 500; ++round) {
      // They come one after the other, and go at once.
      bl::add_modifier(
          manager, "P2", [](const std::string&, std::string& _text) { _text += '1'; }, "M", 100);
      bl::add_modifier(
          manager, "P2", [](const std::string&, std::string& _text) { _text += '2'; }, "M", 100);
      threads.waitForRounds(1);
      bl::del_modifier(manager, "P2", "M");
    }
  }
  EXPECT_EQ(mixed, 0);
  EXPECT_GT(whole, 0);
  bl::del_appender(manager, "*", "A");
}

TEST(ConcurrentSetUp, NeverMakesAStatementWait) {
  bl::flush_log_cache();
  bl::default_log_manager& manager = bl::get_default_log_manager();
  const bl::logger log("P3");
  std::atomic<bool> isLogged{false};
  // The set-up call is held up where it destroys the callable.
  struct SlowToEnd {
    std::atomic<bool>& isLogged;
    ~SlowToEnd() {
      while (!isLogged)
        std::this_thread::yield();
    }
  };
  std::shared_ptr<SlowToEnd> slow(new SlowToEnd{isLogged});
  bl::add_appender(
      manager, "P3", [slow](const std::string&, const std::string&) {}, "slow", 100);
  slow.reset();
  std::thread remover([&manager] { bl::del_appender(manager, "P3", "slow"); });
  log.write("passes");
  bl::enable_logs(manager, "P3", bl::level_on);
  isLogged = true;
  remover.join();
  EXPECT_EQ(manager.size().retired, 0U);
}

TEST(ConcurrentSetUp, FreesReplacedCallablesWhileThreadsLog) {
  bl::flush_log_cache();
  bl::default_log_manager& manager = bl::get_default_log_manager();
  std::size_t mostRetired = 0;
  {
    const BusyThreads threads([](int) { bl::logger("P4").write("m"); });
    for (int round = 0; round < 1000; ++round) {
      bl::add_appender(
          manager, "P4", [](const std::string&, const std::string&) {}, "A", 100);
      bl::del_appender(manager, "P4", "A");
      mostRetired = std::max(mostRetired, manager.size().retired);
    }
    threads.waitForRounds(10);
  }
  // Each thread can hold one set, and one more keeps what it is about to leave.
  EXPECT_LE(mostRetired, 4U * threadCount);
  bl::del_appender(manager, "P4", "A");
  EXPECT_LE(manager.size().retired, 0U);
}

TEST(ConcurrentSetUp, LetsManyThreadsCreateLogsAtOnce) {
  bl::default_log_manager& manager = bl::get_default_log_manager();
  std::set<const void*> logs[threadCount];
  std::vector<std::thread> threads;
  for (auto& found : logs) {
    threads.emplace_back([&manager, &found] {
      for (int i = 0; i < 1000; ++i)
        found.insert(&manager.log("P5." + std::to_string(i)));
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  for (const auto& found : logs) {
    EXPECT_EQ(found.size(), 1000U);
    EXPECT_EQ(found, logs[0]);
  }
}

}  // namespace
