// SPDX-License-Identifier: MIT
#include "platform/console.h"

#include <gtest/gtest.h>

#include "tests/support/captured_console.h"
#include "tests/support/fault_plan.h"

namespace {

using platform::writeConsole;
using testsupport::CapturedConsole;

TEST(Console, WritesTextAsItIs) {
  const CapturedConsole console;
  writeConsole("==> first() %s 100%\r\n");
  writeConsole("second, without a line end");
  EXPECT_EQ(console.text(), "==> first() %s 100%\r\nsecond, without a line end");
}

TEST(Console, WritesNothingForAnEmptyText) {
  const CapturedConsole console;
  const testsupport::FaultPlan plan(platform::Call::consoleWrite, 1, platform::errorAccessDenied);
  writeConsole("");
  EXPECT_EQ(plan.calls(), 0);
  EXPECT_EQ(console.text(), "");
}

TEST(Console, LosesAWriteAsPlannedAndMakesTheNext) {
  const CapturedConsole console;
  const testsupport::FaultPlan plan(platform::Call::consoleWrite, 2, platform::errorAccessDenied);
  writeConsole("one\r\n");
  writeConsole("two\r\n");
  writeConsole("three\r\n");
  EXPECT_EQ(console.text(), "one\r\nthree\r\n");
}

}  // namespace
