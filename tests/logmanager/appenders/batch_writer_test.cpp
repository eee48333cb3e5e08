// SPDX-License-Identifier: MIT
#include "logmanager/appenders/batch_writer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>

#include "tests/logmanager/appenders/parked_writer.h"
#include "tests/support/fault_plan.h"
#include "tests/support/temporary_folder.h"

namespace {

using boost::logging::write_to_file;
using boost::logging::detail::MessageGaps;
using std::chrono::milliseconds;
using testsupport::ParkedWriter;

TEST(BatchWriter, DeliversOnceWhatAnEndedThreadWasAboutToAppend) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("ended.log");
  const write_to_file file(path, false);
  ParkedWriter writer(file);
  const testsupport::CallHook hook(platform::Call::append, 1, [&writer] { writer.park(); });
  writer.start("parked\n", "later\n");
  writer.finish();
  EXPECT_EQ(testsupport::replaced(testsupport::readFile(path), "\r\n", "\n"), "parked\nlater\n");
}

TEST(BatchWriter, DoesNotReenterAForeignAppenderThatItsThreadDiedIn) {
  std::atomic<int> calls{0};
  ParkedWriter* parked = nullptr;
  ParkedWriter writer([&calls, &parked](const std::string&, const std::string&) {
    ++calls;
    parked->park();
  });
  parked = &writer;
  writer.start("parked\n", "later\n");
  writer.finish();
  EXPECT_EQ(calls.load(), 1);
}

TEST(BatchWriter, StopsAnAppenderThatLogsToItselfOnTheThreadOfACaller) {
  int calls = 0;
  boost::logging::detail::BatchWriter* self = nullptr;
  const auto logAgain = [&calls, &self](const std::string&, const std::string&) {
    ++calls;
    self->queue().push("again\n");
    self->attend();
  };
  boost::logging::detail::BatchWriter writer(logAgain, 0);
  self = &writer;
  writer.noteNoThread();
  writer.queue().push("first\n");
  EXPECT_FALSE(writer.attend());
  EXPECT_EQ(calls, 8);
}

constexpr milliseconds soon{3};

/// After so many messages at such a distance.
MessageGaps gapsAfter(int _count, milliseconds _distance, MessageGaps::Time& _now) {
  MessageGaps gaps;
  for (int i = 0; i < _count; ++i) {
    _now += _distance;
    gaps.noteArrival(_now);
  }
  return gaps;
}

TEST(MessageGaps, ExpectNoMessageAtFirst) {
  MessageGaps::Time now{};
  EXPECT_FALSE(gapsAfter(0, milliseconds(0), now).isOneExpectedWithin(soon, now + milliseconds(1)));
}

TEST(MessageGaps, ExpectTheNextMessageOfAQuickSequence) {
  MessageGaps::Time now{};
  EXPECT_TRUE(gapsAfter(8, milliseconds(1), now).isOneExpectedWithin(soon, now + milliseconds(1)));
}

TEST(MessageGaps, ExpectNoMessageBetweenRareOnes) {
  MessageGaps::Time now{};
  EXPECT_FALSE(gapsAfter(100, milliseconds(10), now).isOneExpectedWithin(soon, now));
}

TEST(MessageGaps, ExpectNoMessageLongAfterAQuickSequence) {
  MessageGaps::Time now{};
  EXPECT_FALSE(gapsAfter(100, milliseconds(1), now).isOneExpectedWithin(soon, now + milliseconds(3)));
}

TEST(MessageGaps, ExpectAMessageOnlyWhereTheyCameAtSuchARateAndHaveNotStopped) {
  MessageGaps gaps;
  MessageGaps::Time now{};
  EXPECT_FALSE(gaps.isOneExpectedWithin(milliseconds(1), now));
  for (int i = 0; i < 30; ++i)
    gaps.noteArrival(now += std::chrono::microseconds(500));
  EXPECT_TRUE(gaps.isOneExpectedWithin(milliseconds(1), now));
  EXPECT_TRUE(gaps.isOneExpectedWithin(milliseconds(1), now + std::chrono::microseconds(900)));
  EXPECT_FALSE(gaps.isOneExpectedWithin(milliseconds(1), now + milliseconds(1)));
  EXPECT_FALSE(gaps.isOneExpectedWithin(std::chrono::microseconds(400), now));
}

}  // namespace
