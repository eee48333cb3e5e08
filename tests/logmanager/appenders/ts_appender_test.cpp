// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/appenders/failure_report.h"
#include "tests/logmanager/appenders/wrapped_appender.h"
#include "tests/support/process_resources.h"
#include "tests/support/processor_time.h"

namespace {

using boost::logging::ts_appender;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using testing::ElementsAre;
using testsupport::Wrapped;

/// In milliseconds, as an interval.
constexpr int hour = 3600000;

Clock::duration durationOf(const std::function<void()>& _function) {
  const Clock::time_point begin = Clock::now();
  _function();
  return Clock::now() - begin;
}

/// Throws after each message that the wrapped one has got.
boost::logging::appender throwingAfter(Wrapped& _wrapped) {
  return [inner = _wrapped.appender()](const std::string& _log, const std::string& _text) {
    inner(_log, _text);
    throw std::runtime_error("broken");
  };
}

TEST(TsAppender, SleepsAHundredMillisecondsInTheFirstCall) {
  Wrapped wrapped;
  const ts_appender appender(wrapped.appender(), 0);
  EXPECT_GE(durationOf([&] { appender("App", "1"); }), milliseconds(100));
  EXPECT_EQ(wrapped.waitForText(1), "1");
}

TEST(TsAppender, NeitherStartsAThreadNorSleepsWithoutAMessage) {
  Wrapped wrapped;
  const std::size_t before = testsupport::processResources().threads;
  {
    // Whoever waited for it would wait for ever.
    const ts_appender appender(wrapped.appender(), hour);
    // Those of other tests may just be ending.
    EXPECT_LE(testsupport::processResources().threads, before);
  }
  EXPECT_TRUE(wrapped.calls().empty());
}

TEST(TsAppender, DeliversMessagesInBatchesWithAnEmptyLogName) {
  Wrapped wrapped;
  const ts_appender appender(wrapped.appender(), 0);
  wrapped.holdUp(true);
  appender("App", "first\n");
  wrapped.waitForText(6);
  appender("App", "second\n");
  appender("Other", "third\n");
  wrapped.holdUp(false);
  wrapped.waitForText(19);
  EXPECT_THAT(wrapped.calls(), ElementsAre("|first\n", "|second\nthird\n"));
}

TEST(TsAppender, DoesNotLetCallersWaitForTheWrappedAppender) {
  Wrapped wrapped;
  const ts_appender appender(wrapped.appender(), 0);
  wrapped.holdUp(true);
  appender("App", "1");
  wrapped.waitForText(1);
  for (int i = 0; i < 1000; ++i)
    appender("App", "2");
  EXPECT_EQ(wrapped.calls().size(), 1U);
  wrapped.holdUp(false);
  wrapped.waitForText(1001);
}

/// Returns when so many exceptions have been counted. They are counted after the wrapped appender has got its message;
/// what is not yet counted at the end of a test would be counted in the next one.
void waitForExceptions(std::uint64_t _count) {
  while (boost::logging::detail::exceptionCount() < _count)
    std::this_thread::yield();
}

TEST(TsAppender, IgnoresWhatTheWrappedAppenderThrows) {
  const std::uint64_t before = boost::logging::detail::exceptionCount();
  Wrapped wrapped;
  const ts_appender appender(throwingAfter(wrapped), 0);
  appender("App", "1");
  wrapped.waitForText(1);
  appender("App", "2");
  EXPECT_EQ(wrapped.waitForText(2), "12");
  waitForExceptions(before + 2);
}

TEST(TsAppender, ReportsHowManyMessagesAThrowingAppenderLost) {
  const std::uint64_t before = boost::logging::detail::exceptionCount();
  Wrapped wrapped;
  const ts_appender appender(throwingAfter(wrapped), 0);
  appender("App", "1");
  wrapped.waitForText(1);
  waitForExceptions(before + 1);
  EXPECT_EQ(boost::logging::detail::exceptionCount(), before + 1);
}

TEST(TsAppender, HoldsNoMoreThanItsLimitAndReportsWhatItDropped) {
  constexpr std::size_t limit = std::size_t{64} * 1024 * 1024;
  constexpr int count = 90;
  const std::string mebi(std::size_t{1024} * 1024, 'x');
  Wrapped wrapped;
  const ts_appender appender(wrapped.appender(), 0);
  wrapped.holdUp(true);
  appender("App", "first\n");
  wrapped.waitForText(6);
  for (int i = 0; i < count; ++i)
    appender("App", mebi + "\n");
  wrapped.holdUp(false);
  const std::string text = wrapped.waitFor("were dropped: too much was waiting for this appender\n");
  const int dropped = std::stoi(text.substr(text.rfind('\n', text.find(" messages were dropped")) + 1));
  const std::size_t delivered = static_cast<std::size_t>(count - dropped) * mebi.size();
  EXPECT_LE(delivered, limit);
  EXPECT_GE(delivered, limit * 9 / 10);
  const std::string all = wrapped.waitForText(delivered + static_cast<std::size_t>(count - dropped) + 60);
  EXPECT_EQ(static_cast<std::size_t>(std::count(all.begin(), all.end(), 'x')), delivered);
}

TEST(TsAppender, WaitsOneIntervalBetweenBatches) {
  Wrapped wrapped;
  wrapped.holdUp(true);
  const ts_appender appender(wrapped.appender(), 300);
  appender("App", "1");
  wrapped.waitForText(1);
  appender("App", "2");
  appender("App", "3");
  const Clock::time_point begin = Clock::now();
  wrapped.holdUp(false);
  wrapped.waitForText(3);
  EXPECT_GE(Clock::now() - begin, milliseconds(300));
  EXPECT_THAT(wrapped.calls(), ElementsAre("|1", "|23"));
}

TEST(TsAppender, SleepsOneAndAHalfIntervalsAtTheEndOfTheLastCopyAndLosesNothing) {
  Wrapped wrapped;
  std::optional<ts_appender> appender(std::in_place, wrapped.appender(), 200);
  (*appender)("App", "1");
  std::optional<ts_appender> copy(*appender);
  appender.reset();
  wrapped.waitForText(1);
  (*copy)("App", "2");
  EXPECT_GE(durationOf([&] { copy.reset(); }), milliseconds(300));
  EXPECT_EQ(wrapped.waitForText(2), "12");
}

// Where the end of such a copy slept, the test would take hours. The last one is left to the end of the process.
TEST(TsAppender, DoesNotSleepAtTheEndOfACopyThatIsNotTheLast) {
  static auto* const wrapped = new Wrapped;
  static const auto* const last = new ts_appender(wrapped->appender(), hour);
  std::optional<ts_appender> copy(*last);
  (*copy)("App", "1");
  copy.reset();
  EXPECT_EQ(wrapped->waitForText(1), "1");
}

TEST(TsAppender, SleepsHalfAMillisecondMoreForAnOddInterval) {
  Wrapped wrapped;
  std::optional<ts_appender> appender(std::in_place, wrapped.appender(), 1);
  (*appender)("App", "1");
  wrapped.waitForText(1);
  const Clock::time_point begin = Clock::now();
  appender.reset();
  EXPECT_GE(Clock::now() - begin, std::chrono::microseconds(1500));
}

TEST(TsAppender, DeliversWhatIsHeldUpAfterTheEndOfTheLastCopy) {
  auto wrapped = std::make_shared<Wrapped>();
  {
    const ts_appender appender(wrapped->appender(), 0);
    wrapped->holdUp(true);
    appender("App", "1");
    wrapped->waitForText(1);
    appender("App", "2");
  }
  wrapped->holdUp(false);
  EXPECT_EQ(wrapped->waitForText(2), "12");
}

TEST(TsAppender, DestroysTheWrappedAppenderAfterTheLastCopy) {
  const auto used = std::make_shared<int>(1);
  std::optional<ts_appender> appender(
      std::in_place, [used](const std::string&, const std::string&) {}, 1);
  (*appender)("App", "1");
  appender.reset();
  const Clock::time_point end = Clock::now() + std::chrono::seconds(30);
  while (used.use_count() > 1 && Clock::now() < end)
    std::this_thread::yield();
  EXPECT_EQ(used.use_count(), 1);
}

TEST(TsAppender, AcceptsMessagesFromManyThreads) {
  Wrapped wrapped;
  const ts_appender appender(wrapped.appender(), 0);
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&appender] {
      for (int line = 0; line < 5000; ++line)
        appender("App", "0123456789\n");
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(wrapped.waitForText(220000).size(), 220000U);
}

TEST(TsAppender, UsesNoProcessorTimeWhenIdle) {
  Wrapped wrapped;
  const ts_appender quick(wrapped.appender(), 0);
  const ts_appender slow(wrapped.appender(), 1);
  quick("App", "1");
  slow("App", "2");
  wrapped.waitForText(2);
  // Longer than the writers go on looking for text.
  std::this_thread::sleep_for(milliseconds(100));
  // Wine counts the time in steps of 10 ms, one of which may end in any second. What uses some time does so in each
  // one.
  std::chrono::microseconds least = std::chrono::hours(1);
  for (int second = 0; second < 5 && least >= milliseconds(5); ++second) {
    const auto before = testsupport::processorTime();
    std::this_thread::sleep_for(milliseconds(1000));
    least = std::min(least, testsupport::processorTime() - before);
  }
  EXPECT_LT(least, milliseconds(5));
  quick("App", "3");
  slow("App", "4");
  EXPECT_EQ(wrapped.waitForText(4).size(), 4U);
}

TEST(TsAppender, LetsTheWrappedAppenderLogToIt) {
  Wrapped wrapped;
  const boost::logging::appender inner = wrapped.appender();
  std::optional<ts_appender> appender;
  appender.emplace(
      [&](const std::string& _log, const std::string& _text) {
        if (_text == "outer") (*appender)("App", "inner");
        inner(_log, _text);
      },
      0);
  (*appender)("App", "outer");
  EXPECT_EQ(wrapped.waitForText(10), "outerinner");
}

}  // namespace
