// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/history.h"

#include <gtest/gtest.h>

namespace {

using qmrkctl::parseHistory;

TEST(History, ReadsARecordALine) {
  const auto history = parseHistory("{\"time\":\"a\"}\n\n{\"time\":\"b\"}\r\n");
  ASSERT_EQ(history.records.size(), 2U);
  EXPECT_EQ(history.records[1]["time"], "b");
  EXPECT_EQ(history.unreadableLines, 0U);
}

TEST(History, CountsLinesThatAreNoRecord) {
  const auto history = parseHistory("{\"torn\n{\"time\":\"a\"}\n[]\n{\"time\":7}\nnull\n{}");
  EXPECT_EQ(history.records.size(), 1U);
  EXPECT_EQ(history.unreadableLines, 5U);
}

}  // namespace
