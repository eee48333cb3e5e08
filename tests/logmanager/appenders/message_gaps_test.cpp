// SPDX-License-Identifier: MIT
#include "logmanager/appenders/message_gaps.h"

#include <gtest/gtest.h>

namespace {

using boost::logging::detail::MessageGaps;
using std::chrono::milliseconds;

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

TEST(MessageGaps, ExpectNothingAtFirst) {
  MessageGaps::Time now{};
  EXPECT_FALSE(gapsAfter(0, milliseconds(0), now).isOneExpectedWithin(soon, now + milliseconds(1)));
}

TEST(MessageGaps, ExpectTheNextOfAQuickSequence) {
  MessageGaps::Time now{};
  EXPECT_TRUE(gapsAfter(8, milliseconds(1), now).isOneExpectedWithin(soon, now + milliseconds(1)));
}

TEST(MessageGaps, ExpectNothingBetweenMessagesThatAreFarApart) {
  MessageGaps::Time now{};
  EXPECT_FALSE(gapsAfter(100, milliseconds(10), now).isOneExpectedWithin(soon, now));
}

TEST(MessageGaps, ExpectNothingLongAfterAQuickSequence) {
  MessageGaps::Time now{};
  EXPECT_FALSE(gapsAfter(100, milliseconds(1), now).isOneExpectedWithin(soon, now + milliseconds(3)));
}

}  // namespace
