// SPDX-License-Identifier: MIT
#include "logmanager/appenders/lane.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <thread>

namespace {

using boost::logging::detail::HeldBytes;
using boost::logging::detail::Lane;
using boost::logging::detail::Record;

constexpr std::size_t mebi = std::size_t{1024} * 1024;

/// A lane with both of its sides.
class LaneTest : public testing::Test {
 protected:
  ~LaneTest() override {
    lane_->release();
    lane_->release();
  }

  bool put(const std::string& _text) {
    if (!lane_->makeRoom(_text.size())) return false;
    std::memcpy(lane_->textBegin(), _text.data(), _text.size());
    lane_->publish(++stamp_, 0, nullptr, nullptr, _text.size());
    return true;
  }

  /// The text of the next record, which is passed; "none" when there is none.
  std::string take() {
    const Record* const record = lane_->peek();
    if (record == nullptr) return "none";
    std::string text(record->text());
    lane_->pass(*record);
    return text;
  }

  HeldBytes held_{mebi};
  Lane* const lane_ = Lane::create(held_);
  std::uint64_t stamp_ = 0;
};

std::string textOf(int _number) {
  return std::string(static_cast<std::size_t>(_number * 37 % 700), 'a') + std::to_string(_number);
}

TEST_F(LaneTest, YieldsRecordsInTheOrderOfPublishing) {
  EXPECT_EQ(take(), "none");
  put("first");
  put("");
  put("third");
  EXPECT_EQ(take(), "first");
  EXPECT_EQ(take(), "");
  EXPECT_EQ(take(), "third");
  EXPECT_EQ(take(), "none");
}

TEST_F(LaneTest, ReusesItsMemoryWhileTheConsumerKeepsUp) {
  for (int i = 0; i < 5000; ++i) {
    ASSERT_TRUE(put(textOf(i)));
    ASSERT_EQ(take(), textOf(i));
    lane_->consume();
  }
  EXPECT_TRUE(held_.add(mebi)) << "no ring was added";
}

TEST_F(LaneTest, GrowsWhileTheConsumerLagsAndReleasesTheMemoryAfterwards) {
  for (int i = 0; i < 1000; ++i)
    ASSERT_TRUE(put(textOf(i)));
  EXPECT_FALSE(held_.add(mebi));
  for (int i = 0; i < 1000; ++i)
    ASSERT_EQ(take(), textOf(i));
  EXPECT_EQ(take(), "none");
  lane_->consume();
  // The ring in use and a spare one stay, but nothing waits in them.
  EXPECT_TRUE(held_.add(mebi));
}

TEST_F(LaneTest, MovesATextThatOutgrowsItsRoom) {
  put(std::string(3000, 'x'));
  ASSERT_TRUE(lane_->makeRoom(10));
  std::string text = "begun";
  std::memcpy(lane_->textBegin(), text.data(), text.size());
  for (const std::size_t size : {std::size_t{900}, std::size_t{5000}, std::size_t{60000}}) {
    ASSERT_TRUE(lane_->makeMoreRoom(text.size(), size));
    ASSERT_GE(static_cast<std::size_t>(lane_->textEnd() - lane_->textBegin()), size);
    ASSERT_EQ(std::string(lane_->textBegin(), text.size()), text);
    std::memset(lane_->textBegin() + text.size(), 'y', size - text.size());
    text.resize(size, 'y');
  }
  // What does not double would be copied again and again.
  EXPECT_FALSE(lane_->makeMoreRoom(text.size(), 70000));
  lane_->publish(2, 0, nullptr, nullptr, text.size());
  EXPECT_EQ(take(), std::string(3000, 'x'));
  EXPECT_EQ(take(), text);
}

TEST_F(LaneTest, MovesAnUnfinishedTextToTheFreeBeginningOfTheRing) {
  for (int i = 0; i < 3; ++i)
    put(std::string(1000, 'x'));
  for (int i = 0; i < 3; ++i)
    take();
  lane_->consume();
  ASSERT_TRUE(lane_->makeRoom(500));
  std::memcpy(lane_->textBegin(), "begun", 5);
  ASSERT_TRUE(lane_->makeMoreRoom(5, 2000));
  EXPECT_EQ(std::string(lane_->textBegin(), 5), "begun");
  lane_->publish(9, 0, nullptr, nullptr, 5);
  EXPECT_EQ(take(), "begun");
  EXPECT_TRUE(held_.add(mebi)) << "no ring was added";
}

TEST_F(LaneTest, RefusesWhatExceedsTheLimitAndRecovers) {
  const std::string text(60000, 'x');
  int count = 0;
  while (put(text))
    ++count;
  EXPECT_GE(count, 13);
  EXPECT_LE(count * text.size(), mebi);
  EXPECT_FALSE(put(text));
  for (int i = 0; i < count; ++i)
    ASSERT_EQ(take(), text);
  lane_->consume();
  EXPECT_TRUE(put(text));
  EXPECT_EQ(take(), text);
}

TEST_F(LaneTest, YieldsAgainWhatWasNotConsumed) {
  for (int i = 0; i < 300; ++i)
    put(textOf(i));
  for (int i = 0; i < 10; ++i)
    take();
  lane_->consume();
  for (int i = 10; i < 300; ++i)
    take();
  lane_->rewind();
  for (int i = 10; i < 300; ++i)
    ASSERT_EQ(take(), textOf(i));
}

TEST_F(LaneTest, ForgetsInAChildWhatTheParentPublished) {
  for (int i = 0; i < 300; ++i)
    put(textOf(i));
  take();
  lane_->forgetAll();
  EXPECT_EQ(take(), "none");
  put("next");
  EXPECT_EQ(take(), "next");
  lane_->consume();
}

TEST_F(LaneTest, TellsTheProducerThatTheConsumerIsGone) {
  Lane* const other = Lane::create(held_);
  EXPECT_FALSE(other->isAbandoned());
  other->release();
  EXPECT_TRUE(other->isAbandoned());
  other->release();
}

TEST_F(LaneTest, CarriesTextsFromOneThreadToAnother) {
  constexpr int count = 20000;
  std::thread producer([this] {
    for (int i = 0; i < count;) {
      if (put(textOf(i))) {
        ++i;
      } else {
        std::this_thread::yield();
      }
    }
  });
  for (int i = 0; i < count;) {
    const std::string text = take();
    if (text == "none") {
      lane_->consume();
      std::this_thread::yield();
      continue;
    }
    ASSERT_EQ(text, textOf(i++));
  }
  producer.join();
}

}  // namespace
