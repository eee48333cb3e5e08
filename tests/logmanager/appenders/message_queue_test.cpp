// SPDX-License-Identifier: MIT
#include "logmanager/appenders/message_queue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "boost/logging/logging.hpp"
#include "platform/clock.h"

namespace {

using boost::logging::detail::Batch;
using boost::logging::detail::Lane;
using boost::logging::detail::LinePlan;
using boost::logging::detail::MessageQueue;
using testing::ElementsAre;

/// A lane whose producer's side belongs to the test.
class OwnedLane {
 public:
  explicit OwnedLane(MessageQueue& _queue) : queue_(_queue), lane_(_queue.addLane()) {}
  ~OwnedLane() { lane_->release(); }
  OwnedLane(const OwnedLane&) = delete;
  OwnedLane& operator=(const OwnedLane&) = delete;

  void put(const std::string& _text, const LinePlan* _plan = nullptr, const std::string* _logName = nullptr) {
    ASSERT_TRUE(lane_->makeRoom(_text.size()));
    std::memcpy(lane_->textBegin(), _text.data(), _text.size());
    queue_.publish(*lane_, _plan, _logName, _text.size());
  }

  Lane& lane() { return *lane_; }

 private:
  MessageQueue& queue_;
  Lane* lane_;
};

std::string collected(MessageQueue& _queue, bool _isLast = false) {
  Batch batch;
  _queue.collect(batch, _isLast);
  return batch.text;
}

TEST(MessageQueue, MergesAllLanesInTheOrderOfTheNumbers) {
  MessageQueue queue;
  OwnedLane one(queue);
  OwnedLane other(queue);
  one.put("1");
  other.put("2");
  queue.push("3");
  one.put("4");
  one.put("5");
  other.put("6");
  EXPECT_EQ(collected(queue), "123456");
  queue.consume();
  EXPECT_EQ(collected(queue), "");
}

TEST(MessageQueue, LeavesNumbersTakenAfterItsLookToTheNextPass) {
  MessageQueue queue;
  OwnedLane lane(queue);
  lane.put("1");
  // A message with a number that the counter has not reached yet, as one that comes during the pass.
  ASSERT_TRUE(lane.lane().makeRoom(1));
  *lane.lane().textBegin() = '2';
  lane.lane().publish(1, 0, nullptr, nullptr, 1);
  EXPECT_EQ(collected(queue), "1");
  queue.push("");
  EXPECT_EQ(collected(queue), "2");
}

TEST(MessageQueue, MarksTheEndOfEachMessage) {
  MessageQueue queue;
  queue.push("one\n");
  queue.push("three\n");
  Batch batch;
  queue.collect(batch, false);
  EXPECT_THAT(batch.ends, ElementsAre(4, 10));
}

TEST(MessageQueue, FormatsEachMessageByItsPlan) {
  LinePlan plan;
  plan.add(boost::logging::prepend_time_ms("$yyyy "));
  plan.add(&boost::logging::prepend_prefix);
  plan.add(&boost::logging::append_enter);
  const std::string name = "App.error";
  MessageQueue queue;
  OwnedLane lane(queue);
  lane.put("text", &plan, &name);
  lane.put("next", &plan, &name);
  const std::string front = "[App.error] " + std::to_string(platform::localTime().year) + " ";
  EXPECT_EQ(collected(queue), front + "text\n" + front + "next\n");
}

TEST(MessageQueue, StampsAMessageWithTheTimeOfItsStatement) {
  LinePlan plan;
  plan.add(boost::logging::prepend_time_ms("$hh$mm$ss$mss "));
  const std::string name = "App";
  const auto stamp = [] {
    const platform::LocalTime time = platform::localTime();
    return ((time.hour * 60 + time.minute) * 60 + time.second) * 1000 + time.millisecond;
  };
  MessageQueue queue;
  OwnedLane lane(queue);
  const int before = stamp();
  lane.put("", &plan, &name);
  const int after = stamp();
  // The pass comes later than the message by more than the stamp may be off.
  while (stamp() < after + 50 && stamp() >= before) {
  }
  const int text = std::stoi(collected(queue));
  const int told = ((text / 10000000 * 60 + text / 100000 % 100) * 60 + text / 1000 % 100) * 1000 + text % 1000;
  EXPECT_GE(told, before - 1);
  EXPECT_LE(told, after + 1);
}

TEST(MessageQueue, CollectsAgainWhatWasNotConsumed) {
  MessageQueue queue;
  queue.push("1");
  EXPECT_EQ(collected(queue), "1");
  queue.consume();
  queue.push("2");
  EXPECT_EQ(collected(queue), "2");
  queue.rewind();
  queue.push("3");
  EXPECT_EQ(collected(queue), "23");
}

TEST(MessageQueue, EndsABatchThatIsLargeEnough) {
  MessageQueue queue;
  const std::string text(100000, 'x');
  for (int i = 0; i < 5; ++i)
    queue.push(text);
  EXPECT_EQ(collected(queue).size(), 300000U);
  EXPECT_FALSE(queue.isDrained());
  EXPECT_EQ(collected(queue).size(), 200000U);
  EXPECT_TRUE(queue.isDrained());
}

TEST(MessageQueue, DropsTheNewestBeyondItsLimitAndReportsTheNumberOnceThereIsRoom) {
  constexpr std::size_t limit = std::size_t{1024} * 1024;
  MessageQueue queue(limit);
  const std::string text(1000, 'x');
  for (int i = 0; i < 2000; ++i)
    queue.push(text);
  std::size_t delivered = 0;
  std::string told;
  for (std::string batch = collected(queue); !batch.empty(); batch = collected(queue)) {
    queue.consume();
    if (batch.starts_with("x")) {
      delivered += batch.size();
    } else {
      told += batch.substr(0, batch.find('\n') + 1);
      delivered += batch.size() - batch.find('\n') - 1;
    }
  }
  EXPECT_LE(delivered, limit);
  EXPECT_GE(delivered, limit * 9 / 10);
  EXPECT_EQ(told, std::to_string(2000 - delivered / 1000) +
                      " messages were dropped: too much was waiting for this appender\n");
  EXPECT_EQ(collected(queue, true), "");
}

TEST(MessageQueue, ReportsAtTheEndWhatItDropped) {
  MessageQueue queue(8192);
  for (int i = 0; i < 10; ++i)
    queue.push(std::string(3000, 'x'));
  EXPECT_THAT(collected(queue), testing::Not(testing::HasSubstr("dropped")));
  queue.consume();
  EXPECT_THAT(collected(queue, true), testing::HasSubstr("dropped"));
}

TEST(MessageQueue, StartsEmptyInAChild) {
  MessageQueue queue;
  OwnedLane lane(queue);
  lane.put("of the parent");
  queue.push("of the parent");
  queue.lockForFork();
  queue.forgetAllInChild();
  EXPECT_TRUE(queue.isDrained());
  EXPECT_EQ(collected(queue), "");
  lane.put("of the child");
  EXPECT_EQ(collected(queue), "of the child");
}

/// Collects and delivers everything.
std::size_t deliveredBytes(MessageQueue& _queue) {
  std::size_t bytes = 0;
  for (std::string text = collected(_queue); !text.empty(); text = collected(_queue)) {
    bytes += text.size();
    _queue.consume();
  }
  return bytes;
}

TEST(MessageQueue, CountsOnlyMemoryInWhichMessagesWait) {
  constexpr std::size_t limit = std::size_t{1024} * 1024;
  MessageQueue queue(limit);
  std::vector<std::unique_ptr<OwnedLane>> lanes;
  for (int i = 0; i < 40; ++i) {
    lanes.push_back(std::make_unique<OwnedLane>(queue));
    for (int part = 0; part < 30; ++part)
      lanes.back()->put(std::string(4000, 'x'));
    EXPECT_EQ(deliveredBytes(queue), 30U * 4000U);
  }
  for (int i = 0; i < 4; ++i) {
    queue.push(std::string(limit - 100000, 'y'));
    EXPECT_EQ(deliveredBytes(queue), limit - 100000);
  }
}

TEST(MessageQueue, HoldsNothingInAForkedChild) {
  constexpr std::size_t limit = std::size_t{1024} * 1024;
  MessageQueue queue(limit);
  queue.push(std::string(limit - 100000, 'x'));
  queue.lockForFork();
  queue.forgetAllInChild();
  queue.push(std::string(limit - 100000, 'y'));
  EXPECT_EQ(deliveredBytes(queue), limit - 100000);
}

}  // namespace
