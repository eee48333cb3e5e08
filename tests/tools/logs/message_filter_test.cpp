// SPDX-License-Identifier: MIT
#include "tools/logs/message_filter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using qmrkctl::MessageFilter;
using qmrkctl::MessageQuery;
using qmrkctl::patternsOf;

// Which of the lines are accepted, one sign each.
std::string accepted(const MessageQuery& _query, const std::vector<std::string>& _lines) {
  MessageFilter filter(_query);
  std::string signs;
  for (const std::string& line : _lines)
    signs += filter.accepts(line) ? '+' : '-';
  return signs;
}

const std::vector<std::string> lines = {
    "rest of a message",
    "[Demo.App.info] 20261121 10:00:00.000 one",
    "two",
    "[Demo.Net.error] 20261121 10:00:01.000 three",
    "four",
    "[Demo.Apple] 20261121 10:00:02.000 five",
};

TEST(MessageFilter, AcceptsEverythingByDefault) { EXPECT_EQ(accepted({}, lines), "++++++"); }

TEST(MessageFilter, SelectsClassesByTheRulesOfTheLogManager) {
  EXPECT_EQ(accepted({{"Demo.App"}, {}}, lines), "-++---");
  EXPECT_EQ(accepted({{"*.error"}, {}}, lines), "---++-");
  EXPECT_EQ(accepted({{"Demo"}, {}}, lines), "-+++++");
  EXPECT_EQ(accepted({{"demo"}, {}}, lines), "------");
  EXPECT_EQ(accepted({{"Demo.Apple", "Demo.App.info"}, {}}, lines), "-++--+");
}

TEST(MessageFilter, SelectsMessagesSinceATime) {
  MessageQuery query;
  query.since = qmrkctl::civilTime({2026, 11, 21, 10, 0, 1, 0});
  EXPECT_EQ(accepted(query, lines), "---+++");
  query.classes = {"Demo.Apple"};
  EXPECT_EQ(accepted(query, lines), "-----+");
}

TEST(MessageFilter, KnowsTheMessageOfALine) {
  MessageFilter filter{MessageQuery()};
  filter.accepts(lines[0]);
  EXPECT_EQ(filter.logClass(), "");
  filter.accepts(lines[1]);
  filter.accepts(lines[2]);
  EXPECT_EQ(filter.logClass(), "Demo.App.info");
  EXPECT_EQ(qmrkctl::civilText(filter.time()), "2026-11-21 10:00:00");
}

TEST(MessageFilter, AcceptsAListOfPatterns) {
  using Patterns = std::vector<std::string>;
  EXPECT_EQ(patternsOf("A"), Patterns{"A"});
  EXPECT_EQ(patternsOf("A;*.error"), (Patterns{"A", "*.error"}));
  EXPECT_EQ(patternsOf("A;B;"), (Patterns{"A", "B"}));
}

}  // namespace
