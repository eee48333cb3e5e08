// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "boost/logging/logging.hpp"
#include "tests/support/linux/forked_child.h"
#include "tests/support/temporary_folder.h"

// Forks while threads log and set up, in every set-up. A child logs, sets up and ends like any program; an alarm ends
// one that hangs.

namespace {

namespace bl = boost::logging;

constexpr int threadCount = 4;
constexpr int forkCount = 25;

void setUpAgain(const std::string& _logs) {
  bl::default_log_manager& manager = bl::get_default_log_manager();
  bl::add_modifier(manager, _logs, bl::prepend_time_ms("$hh:$mm:$ss.$mss "), "again", 100);
  bl::enable_logs(manager, _logs, bl::level_on);
  bl::del_modifier(manager, _logs, "again");
}

/// Threads that log, each at least once before the constructor returns.
class LoggingThreads {
 public:
  explicit LoggingThreads(const std::string& _logName) {
    for (int i = 0; i < threadCount; ++i) {
      threads_.emplace_back([this, _logName, i] {
        for (int message = 0; !isOver_; ++message) {
          QMRK_LOG(bl::logger(_logName + "." + std::to_string(message % 10))) << "message " << message << "\n";
          if (i == 0) setUpAgain(_logName);
          if (message == 0) ++logging_;
        }
      });
    }
    while (logging_ < threadCount)
      std::this_thread::yield();
  }
  ~LoggingThreads() {
    isOver_ = true;
    for (std::thread& thread : threads_)
      thread.join();
  }
  LoggingThreads(const LoggingThreads&) = delete;
  LoggingThreads& operator=(const LoggingThreads&) = delete;

 private:
  std::atomic<bool> isOver_{false};
  std::atomic<int> logging_{0};
  std::vector<std::thread> threads_;
};

void expectChildrenToLogAndEnd(const std::string& _logName) {
  for (int i = 0; i < forkCount; ++i) {
    ASSERT_EQ(testsupport::inForkedChild([&_logName] {
                ::alarm(60);
                setUpAgain(_logName);
                bl::flush_log_cache();
                for (int message = 0; message < 20; ++message)
                  QMRK_LOG(bl::logger(_logName + ".child" + std::to_string(message))) << "child\n";
                std::exit(0);
                return 1;
              }),
              0);
  }
}

class ForkUnderLoad : public testing::Test {
 protected:
  static void run(const bl::appender& _appender) {
    bl::default_log_manager& manager = bl::get_default_log_manager();
    bl::flush_log_cache();
    bl::add_appender(manager, "L", _appender, "A", 100);
    {
      const LoggingThreads threads("L");
      expectChildrenToLogAndEnd("L");
    }
    bl::del_appender(manager, "L", "A");
  }

  testsupport::TemporaryFolder folder_;
};

// Before the others, whose process has flushed.
TEST_F(ForkUnderLoad, SucceedsWhileMessagesAreKept) {
  const LoggingThreads threads("Early");
  expectChildrenToLogAndEnd("Early");
}

TEST_F(ForkUnderLoad, SucceedsWhileThreadsLogToAFile) { run(bl::write_to_file(folder_.file("app.log"), false)); }

TEST_F(ForkUnderLoad, SucceedsWhileThreadsLogToAnAppenderOfTheApplication) {
  long calls = 0;
  run([&calls](const std::string&, const std::string&) { ++calls; });
  EXPECT_GT(calls, 0);
}

TEST_F(ForkUnderLoad, SucceedsWhileThreadsLogToTheStandardOutput) {
  std::ostringstream text;
  std::streambuf* const former = std::cout.rdbuf(text.rdbuf());
  run(&bl::write_to_cout);
  std::cout.rdbuf(former);
  EXPECT_FALSE(text.str().empty());
}

TEST_F(ForkUnderLoad, SucceedsWhileThreadsLogThroughAWriterThread) {
  run(bl::ts_appender(bl::write_to_file(folder_.file("app.log"), false), 0));
}

TEST(ForkWithWriterThread, LetsParentAndChildDeliverTheirOwnMessagesOnce) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("fork.log");
  std::optional<bl::ts_appender> appender(std::in_place, bl::write_to_file(path, false), 200);
  (*appender)("", "start\n");
  (*appender)("", "held by the parent\n");
  EXPECT_EQ(testsupport::inForkedChild([&appender] {
              (*appender)("", "of the child\n");
              appender.reset();
              // The text of the child is delivered by its own thread, which the end of the process waits for.
              std::exit(0);
              return 0;
            }),
            0);
  (*appender)("", "of the parent\n");
  appender.reset();
  std::string text;
  do {
    text = testsupport::readFile(path);
  } while (text.find("of the parent\n") == std::string::npos);
  text = testsupport::replaced(text, "start\n", "1");
  text = testsupport::replaced(text, "held by the parent\n", "2");
  text = testsupport::replaced(text, "of the child\n", "c");
  text = testsupport::replaced(text, "of the parent\n", "3");
  EXPECT_EQ(testsupport::replaced(text, "c", ""), "123");
  EXPECT_EQ(text.size(), 4U);
}

}  // namespace
