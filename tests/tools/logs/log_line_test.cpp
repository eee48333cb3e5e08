// SPDX-License-Identifier: MIT
#include "tools/logs/log_line.h"

#include <gtest/gtest.h>

namespace {

using qmrkctl::civilText;
using qmrkctl::Gravity;
using qmrkctl::gravityOf;
using qmrkctl::parseLogLine;

TEST(LogLine, ConsistsOfClassTimeAndText) {
  const auto line = parseLogLine("[Demo.App.info] 20261121 10:00:00.123 line 1 of 3");
  ASSERT_TRUE(line);
  EXPECT_EQ(line->logClass, "Demo.App.info");
  EXPECT_EQ(civilText(line->time), "2026-11-21 10:00:00");
  EXPECT_EQ(line->time % 1000, 123);
  EXPECT_EQ(line->text, "line 1 of 3");
}

TEST(LogLine, MayLackMilliseconds) {
  const auto line = parseLogLine("[Demo] 20261121 10:00:00 text");
  ASSERT_TRUE(line);
  EXPECT_EQ(line->time % 1000, 0);
  EXPECT_EQ(line->text, "text");
}

TEST(LogLine, MayLackTextAndClass) {
  ASSERT_TRUE(parseLogLine("[A] 20261121 10:00:00 "));
  ASSERT_TRUE(parseLogLine("[A] 20261121 10:00:00"));
  const auto line = parseLogLine("[] 20261121 10:00:00.000 x");
  ASSERT_TRUE(line);
  EXPECT_EQ(line->logClass, "");
}

TEST(LogLine, AcceptsBracketsInTheNameOfAClass) {
  const auto line = parseLogLine("[Demo [x] y] 20261121 10:00:00.123 text [z] 20261121 10:00:00.123 ");
  ASSERT_TRUE(line);
  EXPECT_EQ(line->logClass, "Demo [x] y");
  EXPECT_EQ(line->text, "text [z] 20261121 10:00:00.123 ");
}

TEST(LogLine, ContinuesAMessageWhenItHasAnotherForm) {
  for (const char* const text :
       {"", "[", "text", " [A] 20261121 10:00:00 x", "[A]20261121 10:00:00 x", "[A] 2026112 10:00:00 x",
        "[A] 20261321 10:00:00 x", "[A] 20261121 10:00:00.12 x", "[A] 20261121 10:00:00,123 x",
        "[A] 20261121 25:00:00 x", "[1] first point", "[A] 20261121 10:00:00x"}) {
    EXPECT_FALSE(parseLogLine(text)) << text;
  }
}

TEST(LogLine, TakesItsGravityFromTheLastPartOfItsClass) {
  EXPECT_EQ(gravityOf("Demo.App.error"), Gravity::error);
  EXPECT_EQ(gravityOf("Demo.App.ERR"), Gravity::error);
  EXPECT_EQ(gravityOf("warn"), Gravity::warning);
  EXPECT_EQ(gravityOf("Demo.warning"), Gravity::warning);
  EXPECT_EQ(gravityOf("Demo.debug"), Gravity::detail);
  EXPECT_EQ(gravityOf("Demo.info"), Gravity::normal);
  EXPECT_EQ(gravityOf("Demo.error.more"), Gravity::normal);
  EXPECT_EQ(gravityOf(""), Gravity::normal);
}

}  // namespace
