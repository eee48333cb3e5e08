// SPDX-License-Identifier: MIT
#include "logmanager/early_messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/message_cache.h"
#include "logmanager/threads/thread_state.h"
#include "platform/process.h"
#include "tests/logmanager/connected_log.h"
#include "tests/logmanager/recorder.h"
#include "tests/support/fault_plan.h"
#include "tests/support/sleeping_thread.h"

namespace {

namespace bl = boost::logging;
using bl::detail::EarlyMessages;
using bl::detail::Log;
using testing::ElementsAre;
using testsupport::ConnectedLog;
using testsupport::Recorder;

TEST(EarlyMessages, ArriveInOrderAtTheFlush) {
  const Recorder recorder;
  ConnectedLog one("one", recorder.appender());
  ConnectedLog other("other", recorder.appender());
  EarlyMessages early;
  EXPECT_TRUE(early.keep(*one, "1"));
  EXPECT_TRUE(early.keep(*other, "2"));
  EXPECT_TRUE(early.keep(*one, "3"));
  EXPECT_TRUE(recorder.messages().empty());
  early.flush();
  EXPECT_THAT(recorder.messages(), ElementsAre("one|1", "other|2", "one|3"));
  EXPECT_FALSE(early.keep(*one, "4"));
  early.flush();
  EXPECT_EQ(recorder.messages().size(), 3U);
}

TEST(EarlyMessages, DisappearWhenTheirLogIsOffAtTheFlush) {
  const Recorder recorder;
  ConnectedLog log("l", recorder.appender());
  EarlyMessages early;
  early.keep(*log, "1");
  (*log).enabled = false;
  early.flush();
  EXPECT_TRUE(recorder.messages().empty());
}

TEST(EarlyMessages, ComeAfterTheNumberOfDroppedOnes) {
  const Recorder recorder;
  ConnectedLog one("one", recorder.appender());
  ConnectedLog other("other", recorder.appender());
  EarlyMessages early;
  const std::string half(bl::detail::MessageCache::usualLimit / 2, 'x');
  early.keep(*one, half);
  early.keep(*one, half);
  early.keep(*other, "a");
  early.keep(*one, half);
  early.flush();
  EXPECT_THAT(recorder.messages(),
              ElementsAre("other|2 messages were dropped before the log cache was flushed", "other|a", "one|" + half));
}

TEST(EarlyMessages, LeaveTheirNumberInTheLogOfTheLatestWhenAllWereDropped) {
  const Recorder recorder;
  ConnectedLog one("one", recorder.appender());
  ConnectedLog other("other", recorder.appender());
  EarlyMessages early;
  early.keep(*one, "short");
  early.keep(*other, std::string(bl::detail::MessageCache::usualLimit + 1, 'x'));
  early.flush();
  EXPECT_THAT(recorder.messages(), ElementsAre("other|2 messages were dropped before the log cache was flushed"));
}

TEST(EarlyMessages, KeepTheirTime) {
  std::vector<std::int64_t> times;
  ConnectedLog log("l", [&times](const std::string&, const std::string&) {
    times.push_back(bl::detail::messageTime(bl::detail::threadState()));
  });
  EarlyMessages early;
  const std::int64_t before = bl::detail::messageTime(bl::detail::threadState());
  early.keep(*log, "1");
  const std::int64_t after = bl::detail::messageTime(bl::detail::threadState());
  while (bl::detail::messageTime(bl::detail::threadState()) < after + 5)
    std::this_thread::yield();
  early.flush();
  ASSERT_EQ(times.size(), 1U);
  EXPECT_GE(times[0], before);
  EXPECT_LE(times[0], after);
}

TEST(EarlyMessages, GoStraightThroughWhenAnAppenderLogsDuringTheFlush) {
  EarlyMessages early;
  std::vector<std::string> got;
  ConnectedLog* self = nullptr;
  bool isKept = true;
  ConnectedLog log("l", [&](const std::string&, const std::string& _message) {
    got.push_back(_message);
    isKept = early.keep(**self, "inner");
  });
  self = &log;
  early.keep(*log, "outer");
  early.flush();
  EXPECT_THAT(got, ElementsAre("outer"));
  EXPECT_FALSE(isKept);
}

TEST(EarlyMessages, OfOtherThreadsDuringTheFlushFollowTheEarlierOnes) {
  EarlyMessages early;
  const Recorder recorder;
  ConnectedLog* self = nullptr;
  ConnectedLog log("l", [&, record = recorder.appender()](const std::string& _log, const std::string& _message) {
    record(_log, _message);
    if (_message == "1") std::thread([&] { EXPECT_TRUE(early.keep(**self, "3")); }).join();
  });
  self = &log;
  early.keep(*log, "1");
  early.keep(*log, "2");
  early.flush();
  EXPECT_THAT(recorder.messages(), ElementsAre("l|1", "l|2", "l|3"));
}

/// A thread that logs a message to be kept.
class LoggingThread {
 public:
  LoggingThread(EarlyMessages& _early, Log& _log, const std::string& _message)
      : thread_([this, &_early, &_log, _message] {
          id_ = platform::threadId();
          isKept_ = _early.keep(_log, _message);
        }) {}

  /// Returns when the thread waits for something.
  void waitUntilItSleeps() const {
    while (id_ == 0)
      std::this_thread::yield();
    EXPECT_TRUE(testsupport::waitUntilThreadSleeps(id_));
  }

  /// Whether the message was kept.
  bool join() {
    thread_.join();
    return isKept_;
  }

 private:
  std::atomic<std::uint32_t> id_{0};
  bool isKept_ = false;
  std::thread thread_;
};

TEST(EarlyMessages, OfOtherThreadsDelayTheFlushByTwoRoundsAndThenWait) {
  EarlyMessages early;
  std::vector<std::string> got;
  std::unique_ptr<LoggingThread> waiting;
  ConnectedLog* self = nullptr;
  ConnectedLog log("l", [&](const std::string&, const std::string& _message) {
    got.push_back(_message);
    // One that is never held up would go on for ever.
    if (got.size() > 3) return;
    auto thread = std::make_unique<LoggingThread>(early, **self, std::to_string(got.size() + 1));
    if (got.size() < 3) {
      EXPECT_TRUE(thread->join());
    } else {
      thread->waitUntilItSleeps();
      waiting = std::move(thread);
    }
  });
  self = &log;
  early.keep(*log, "1");
  early.flush();
  EXPECT_THAT(got, ElementsAre("1", "2", "3"));
  EXPECT_FALSE(waiting->join());
}

TEST(EarlyMessages, OfAThreadInsideAnotherCallableNeverWaitForTheFlush) {
  EarlyMessages early;
  int count = 0;
  ConnectedLog* self = nullptr;
  ConnectedLog log("l", [&](const std::string&, const std::string&) {
    std::thread([&] {
      const bl::detail::MessageScope scope(bl::detail::threadState(), 0);
      EXPECT_FALSE(early.keep(**self, "inner"));
    }).join();
    ++count;
    if (count == 3) return;
    EXPECT_TRUE(LoggingThread(early, **self, "next round").join());
  });
  self = &log;
  early.keep(*log, "first round");
  early.flush();
  EXPECT_EQ(count, 3);
}

TEST(EarlyMessages, OfAThreadForWhichTheFlushItselfWaitsGoOn) {
  EarlyMessages early;
  int count = 0;
  ConnectedLog* self = nullptr;
  ConnectedLog log("l", [&](const std::string&, const std::string&) {
    const bool isKept = LoggingThread(early, **self, "next round").join();
    EXPECT_EQ(isKept, ++count < 3);
  });
  self = &log;
  early.keep(*log, "first round");
  early.flush();
  EXPECT_EQ(count, 3);
}

TEST(EarlyMessages, WaitForRoomDuringTheFlushInsteadOfDroppingOthers) {
  EarlyMessages early;
  std::vector<std::string> got;
  std::unique_ptr<LoggingThread> waiting;
  const std::string filling(bl::detail::MessageCache::usualLimit, 'x');
  ConnectedLog* self = nullptr;
  ConnectedLog log("l", [&](const std::string&, const std::string& _message) {
    got.push_back(_message);
    if (_message != "first") return;
    EXPECT_TRUE(LoggingThread(early, **self, filling).join());
    waiting = std::make_unique<LoggingThread>(early, **self, "too much");
    waiting->waitUntilItSleeps();
  });
  self = &log;
  early.keep(*log, "first");
  early.flush();
  EXPECT_THAT(got, ElementsAre("first", filling));
  EXPECT_FALSE(waiting->join());
}

TEST(EarlyMessages, GoStraightThroughWhenTheFlushEndsBetweenTheTwoLooks) {
  const Recorder recorder;
  ConnectedLog log("l", recorder.appender());
  EarlyMessages early;
  // The time is read between the look without the lock and the one under it.
  const testsupport::CallHook hook(platform::Call::clock, 1, [&early] { early.flush(); });
  EXPECT_FALSE(early.keep(*log, "nobody would deliver it any more"));
}

TEST(EarlyMessages, HoldUpAFlushOfAnotherThreadUntilTheyAreDelivered) {
  EarlyMessages early;
  std::vector<std::string> got;
  std::atomic<std::uint32_t> id{0};
  std::thread other;
  ConnectedLog log("l", [&](const std::string&, const std::string& _message) {
    if (_message == "1") {
      other = std::thread([&] {
        id = platform::threadId();
        early.flush();
        got.emplace_back("the other flush");
      });
      while (id == 0)
        std::this_thread::yield();
      EXPECT_TRUE(testsupport::waitUntilThreadSleeps(id));
    }
    got.push_back(_message);
  });
  early.keep(*log, "1");
  early.keep(*log, "2");
  early.flush();
  other.join();
  EXPECT_THAT(got, ElementsAre("1", "2", "the other flush"));
}

TEST(EarlyMessages, HoldUpNoFlushFromInsideTheirAppender) {
  EarlyMessages early;
  int count = 0;
  ConnectedLog log("l", [&](const std::string&, const std::string&) {
    early.flush();
    ++count;
  });
  early.keep(*log, "1");
  early.flush();
  EXPECT_EQ(count, 1);
}

TEST(EarlyMessages, LeaveTheirNumberInTheFirstLogThatIsOn) {
  const Recorder recorder;
  ConnectedLog off("off", recorder.appender());
  ConnectedLog on("on", recorder.appender());
  EarlyMessages early;
  early.keep(*on, "dropped");
  early.keep(*on, std::string(bl::detail::MessageCache::usualLimit - 2, 'x'));
  early.keep(*off, "1");
  early.keep(*on, "2");
  (*off).enabled = false;
  early.flush();
  EXPECT_EQ(recorder.messages().size(), 3U);
  EXPECT_EQ(recorder.messages()[0], "on|1 message was dropped before the log cache was flushed");
  EXPECT_EQ(recorder.messages()[2], "on|2");
}

}  // namespace
