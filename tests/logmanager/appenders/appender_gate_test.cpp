// SPDX-License-Identifier: MIT
#include "logmanager/appenders/appender_gate.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/callable.h"
#include "platform/process.h"
#include "tests/support/fault_plan.h"
#include "tests/support/parked_thread.h"
#include "tests/support/sleeping_thread.h"

namespace {

namespace bl = boost::logging;

/// An appender that notices when two threads are inside at once.
struct Watched {
  std::atomic<int> inside{0};
  std::atomic<int> tooMany{0};
  std::atomic<int> calls{0};

  bl::appender appender() {
    return [this](const std::string&, const std::string&) {
      if (++inside > 1) ++tooMany;
      std::this_thread::yield();
      ++calls;
      --inside;
    };
  }
};

void inThreads(int _count, const std::function<void(int)>& _function) {
  std::vector<std::thread> threads;
  for (int i = 0; i < _count; ++i)
    threads.emplace_back(_function, i);
  for (std::thread& thread : threads)
    thread.join();
}

TEST(AppenderGate, LetsOneThreadAtATimeIntoAnAppenderOfManyLogs) {
  bl::flush_log_cache();
  Watched watched;
  bl::add_appender(bl::get_default_log_manager(), "G1", watched.appender(), "A", 100);
  inThreads(8, [](int _thread) {
    const bl::logger log("G1." + std::to_string(_thread));
    for (int i = 0; i < 500; ++i)
      log.write("m");
  });
  EXPECT_EQ(watched.tooMany, 0);
  EXPECT_EQ(watched.calls, 4000);
  bl::del_appender(bl::get_default_log_manager(), "*", "A");
}

TEST(AppenderGate, LetsAnAppenderLogToItself) {
  bl::flush_log_cache();
  std::vector<std::string> messages;
  const bl::logger log("G2");
  bl::add_appender(
      bl::get_default_log_manager(), "G2",
      [&](const std::string&, const std::string& _message) {
        messages.push_back(_message);
        if (_message == "outer") log.write("inner");
      },
      "A", 100);
  log.write("outer");
  EXPECT_EQ(messages, (std::vector<std::string>{"outer", "inner"}));
  bl::del_appender(bl::get_default_log_manager(), "*", "A");
}

/// Two appenders, each of which logs to the other while it is entered.
TEST(AppenderGate, LetsAppendersLogThroughEachOtherWithoutADeadlock) {
  bl::flush_log_cache();
  bl::default_log_manager& manager = bl::get_default_log_manager();
  const bl::logger logs[] = {bl::logger("G3.a"), bl::logger("G3.b")};
  std::set<std::string> got[2];
  for (int i = 0; i < 2; ++i) {
    bl::add_appender(
        manager, logs[i].name(),
        [&, i](const std::string&, const std::string& _message) {
          got[i].insert(_message);
          if (_message[0] != '>') logs[1 - i].write(">" + _message);
        },
        "A", 100);
  }
  inThreads(4, [&logs](int _thread) {
    for (int i = 0; i < 2000; ++i)
      logs[_thread % 2].write(std::to_string(_thread) + " " + std::to_string(i));
  });
  EXPECT_EQ(got[0].size(), 8000U);
  EXPECT_EQ(got[1].size(), 8000U);
  bl::del_appender(manager, "*", "A");
}

/// Adds an appender to the log that stops at its first message, and calls _log for each.
void addParked(testsupport::ParkedThread& _thread, const std::string& _logs, const bl::appender& _log) {
  bl::add_appender(
      bl::get_default_log_manager(), _logs,
      [&_thread, _log](const std::string& _name, const std::string& _message) {
        _log(_name, _message);
        _thread.park();
      },
      "A", 100);
}

TEST(AppenderGate, LetsAThreadInsideAnotherAppenderIntoAnEmptyOne) {
  bl::flush_log_cache();
  const bl::logger inner("G7.inner");
  std::vector<std::string> got;
  bl::add_appender(
      bl::get_default_log_manager(), "G7.inner",
      [&](const std::string&, const std::string& _message) { got.push_back(_message); }, "A", 100);
  bl::add_appender(
      bl::get_default_log_manager(), "G7.outer",
      [&](const std::string&, const std::string&) {
        inner.write("inner");
        got.emplace_back("outer");
      },
      "A", 100);
  bl::logger("G7.outer").write("m");
  EXPECT_EQ(got, (std::vector<std::string>{"inner", "outer"}));
  bl::del_appender(bl::get_default_log_manager(), "*", "A");
}

TEST(AppenderGate, KeepsTheDepthOfAHandedOverMessage) {
  bl::flush_log_cache();
  const bl::logger closed("G4.closed");
  const bl::logger open("G4.open");
  int calls = 0;
  testsupport::ParkedThread inside([&](testsupport::ParkedThread& _thread) {
    addParked(_thread, "G4.closed", [&](const std::string&, const std::string& _message) {
      if (_message == "park") return;
      ++calls;
      closed.write("again");
    });
    closed.write("park");
  });
  inside.waitUntilParked();
  // The third message inside another, of the eight that are allowed.
  bl::add_appender(
      bl::get_default_log_manager(), "G4.open",
      [&](const std::string&, const std::string& _message) {
        if (_message == "1") open.write("2");
        if (_message == "2") closed.write("3");
      },
      "A", 100);
  open.write("1");
  EXPECT_EQ(calls, 0);
  inside.release();
  EXPECT_EQ(calls, 6);
  bl::del_appender(bl::get_default_log_manager(), "*", "A");
}

TEST(AppenderGate, DeliversAMessageHandedOverWhileTheThreadInsideLeaves) {
  bl::flush_log_cache();
  const bl::logger closed("G6.closed");
  std::vector<std::string> got;
  std::atomic<std::uint32_t> insideId{0};
  testsupport::ParkedThread inside([&](testsupport::ParkedThread& _thread) {
    insideId = platform::threadId();
    addParked(_thread, "G6.closed", [&](const std::string&, const std::string& _message) { got.push_back(_message); });
    closed.write("first");
  });
  inside.waitUntilParked();
  bl::add_appender(
      bl::get_default_log_manager(), "G6.open",
      [&](const std::string&, const std::string&) {
        // The thread inside has been shown that a message comes, and leaves before it has come.
        const testsupport::CallHook hook(platform::Call::clock, 1, [&] {
          inside.letGo();
          EXPECT_TRUE(testsupport::waitUntilThreadSleeps(insideId));
        });
        closed.write("handed over");
      },
      "A", 100);
  bl::logger("G6.open").write("message");
  inside.release();
  EXPECT_EQ(got, (std::vector<std::string>{"first", "handed over"}));
  bl::del_appender(bl::get_default_log_manager(), "*", "A");
}

TEST(AppenderGate, DeliversHandedOverMessagesBeforeItAdmitsTheNextThread) {
  bl::flush_log_cache();
  const bl::logger closed("G8.closed");
  std::vector<std::string> got;
  testsupport::ParkedThread inside([&](testsupport::ParkedThread& _thread) {
    addParked(_thread, "G8.closed", [&](const std::string&, const std::string& _message) { got.push_back(_message); });
    closed.write("first");
  });
  inside.waitUntilParked();
  bl::add_appender(
      bl::get_default_log_manager(), "G8.open",
      [&](const std::string&, const std::string&) { closed.write("handed over"); }, "A", 100);
  bl::logger("G8.open").write("message");
  std::atomic<std::uint32_t> waitingId{0};
  std::thread waiting([&] {
    waitingId = platform::threadId();
    closed.write("waiting");
  });
  while (waitingId == 0)
    std::this_thread::yield();
  EXPECT_TRUE(testsupport::waitUntilThreadSleeps(waitingId));
  inside.release();
  waiting.join();
  EXPECT_EQ(got, (std::vector<std::string>{"first", "handed over", "waiting"}));
  bl::del_appender(bl::get_default_log_manager(), "*", "A");
}

TEST(AppenderGate, DropsAndReportsTheNewestWhenTooMuchIsHandedOver) {
  bl::flush_log_cache();
  const bl::logger closed("G5.closed");
  std::vector<std::size_t> sizes;
  testsupport::ParkedThread inside([&](testsupport::ParkedThread& _thread) {
    addParked(_thread, "G5.closed",
              [&](const std::string&, const std::string& _message) { sizes.push_back(_message.size()); });
    closed.write("");
  });
  inside.waitUntilParked();
  bl::add_appender(
      bl::get_default_log_manager(), "G5.open",
      [&](const std::string&, const std::string&) {
        for (const std::size_t size : {500000, 400000, 300000, 1})
          closed.write(std::string(size, 'x'));
      },
      "A", 100);
  testing::internal::CaptureStderr();
  bl::logger("G5.open").write("message");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "boost::logging: 1 message dropped, since too many wait for an appender that was entered; the last: \"A\", "
            "log \"G5.closed\"\n");
  inside.release();
  EXPECT_EQ(sizes, (std::vector<std::size_t>{0, 500000, 400000, 1}));
  bl::del_appender(bl::get_default_log_manager(), "*", "A");
}

TEST(AppenderGate, LeavesTheManagersOwnAppendersAlone) {
  EXPECT_NE(bl::detail::makeAppender([](const std::string&, const std::string&) {}, "A", 0)->gate, nullptr);
  EXPECT_EQ(bl::detail::makeAppender(&bl::write_to_cout, "A", 0)->gate, nullptr);
  EXPECT_EQ(bl::detail::makeAppender(bl::write_to_file("x", false), "A", 0)->gate, nullptr);
  EXPECT_EQ(bl::detail::makeAppender(bl::ts_appender(&bl::write_to_cout, 0), "A", 0)->gate, nullptr);
}

}  // namespace
