// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "boost/logging/logging.hpp"
#include "tests/support/linux/forked_child.h"
#include "tests/support/parked_thread.h"

// Forks before and during the flush of the log cache. As a process flushes once, each test runs in a child of its own,
// which an alarm ends when it hangs.

namespace {

namespace bl = boost::logging;
using testsupport::inTimedChild;
using Messages = std::vector<std::string>;

/// Has the log pass its messages to the list, and then to a function.
void collect(const std::string& _logs, Messages& _messages, const std::function<void(const std::string&)>& _function) {
  bl::add_appender(
      bl::get_default_log_manager(), _logs,
      [&_messages, _function](const std::string&, const std::string& _message) {
        _messages.push_back(_message);
        _function(_message);
      },
      "A", 100);
}

TEST(EarlyFork, GivesTheChildNoneOfTheKeptMessages) {
  EXPECT_EQ(inTimedChild([] {
              Messages got;
              const bl::logger log("EF1");
              collect("EF1", got, [](const std::string&) {});
              log.write("of the parent");
              const int child = inTimedChild([&] {
                log.write("kept");
                bl::flush_log_cache();
                log.write("child");
                return got == Messages{"kept", "child"} ? 0 : 1;
              });
              bl::flush_log_cache();
              return child == 0 && got == Messages{"of the parent"} ? 0 : 1;
            }),
            0);
}

TEST(EarlyFork, LetsAChildLogWhileTheParentFlushes) {
  EXPECT_EQ(inTimedChild([] {
              Messages got;
              const bl::logger log("EF2");
              testsupport::ParkedThread flushing([&](testsupport::ParkedThread& _thread) {
                collect("EF2", got, [&_thread](const std::string&) { _thread.park(); });
                log.write("1");
                log.write("2");
                bl::flush_log_cache();
              });
              flushing.waitUntilParked();
              const int child = inTimedChild([&] {
                log.write("child");
                bl::flush_log_cache();
                return got == Messages{"1", "child"} ? 0 : 1;
              });
              flushing.release();
              return child == 0 && got == Messages{"1", "2"} ? 0 : 1;
            }),
            0);
}

TEST(EarlyFork, LeavesTheRestOfAFlushToTheParentWhenAnAppenderForks) {
  EXPECT_EQ(inTimedChild([] {
              Messages got;
              pid_t child = -1;
              const bl::logger log("EF3");
              collect("EF3", got, [&child](const std::string& _message) {
                if (_message == "1") child = ::fork();
              });
              for (const char* const message : {"1", "2", "3"})
                log.write(message);
              bl::flush_log_cache();
              log.write("after");
              if (child == 0) ::_exit(got == Messages{"1", "after"} ? 0 : 1);
              return testsupport::exitCodeOf(child) == 0 && got == Messages{"1", "2", "3", "after"} ? 0 : 1;
            }),
            0);
}

}  // namespace
