// SPDX-License-Identifier: MIT
#include "logmanager/message_cache.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "logmanager/log.h"

namespace {

using boost::logging::detail::Log;
using boost::logging::detail::MessageCache;
using testing::ElementsAre;

std::vector<std::string> textsOf(const MessageCache& _cache) {
  std::vector<std::string> texts;
  _cache.forEach([&texts](const Log& _log, std::int64_t _time, std::string_view _text) {
    texts.push_back(_log.name + "@" + std::to_string(_time) + ":" + std::string(_text));
  });
  return texts;
}

TEST(MessageCache, KeepsMessagesInOrderWithLogAndTime) {
  const Log one("one");
  const Log other("other");
  MessageCache cache(100);
  EXPECT_TRUE(cache.isEmpty());
  cache.add(one, 1, "a");
  cache.add(other, 2, "");
  cache.add(one, 3, "b");
  EXPECT_THAT(textsOf(cache), ElementsAre("one@1:a", "other@2:", "one@3:b"));
  EXPECT_EQ(cache.dropped(), 0U);
}

TEST(MessageCache, DropsTheOldestWhenTheTextsExceedTheLimit) {
  const Log log("l");
  MessageCache cache(10);
  for (const char* const text : {"1111", "2222", "33", "4"})
    cache.add(log, 0, text);
  EXPECT_THAT(textsOf(cache), ElementsAre("l@0:2222", "l@0:33", "l@0:4"));
  EXPECT_EQ(cache.dropped(), 1U);
  cache.add(log, 0, "5555555555");
  EXPECT_THAT(textsOf(cache), ElementsAre("l@0:5555555555"));
  EXPECT_EQ(cache.dropped(), 4U);
}

TEST(MessageCache, DropsAMessageBeyondTheLimitAndAllBeforeIt) {
  const Log log("l");
  MessageCache cache(3);
  cache.add(log, 0, "ab");
  cache.add(log, 0, "long");
  EXPECT_TRUE(cache.isEmpty());
  EXPECT_EQ(cache.dropped(), 2U);
  cache.add(log, 0, "abc");
  EXPECT_THAT(textsOf(cache), ElementsAre("l@0:abc"));
}

TEST(MessageCache, BoundsTheNumberOfEmptyMessages) {
  const Log log("l");
  MessageCache cache(4);
  for (int i = 0; i < 10; ++i)
    cache.add(log, i, "");
  EXPECT_THAT(textsOf(cache), ElementsAre("l@6:", "l@7:", "l@8:", "l@9:"));
}

TEST(MessageCache, HoldsTheLatestMessagesOfAnEndlessSequence) {
  const Log log("l");
  MessageCache cache(1000);
  for (int i = 0; i < 100000; ++i)
    cache.add(log, i, std::to_string(100000 + i));
  const std::vector<std::string> texts = textsOf(cache);
  ASSERT_EQ(texts.size(), 166U);
  EXPECT_EQ(texts.front(), "l@99834:199834");
  EXPECT_EQ(texts.back(), "l@99999:199999");
  EXPECT_EQ(cache.dropped(), 100000U - 166U);
}

}  // namespace
