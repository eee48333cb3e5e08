// SPDX-License-Identifier: MIT
#include "trace/trace_line.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/support/captured_console.h"
#include "tests/support/fault_plan.h"
#include "trace/trace_flags.h"

namespace {

using platform::Call;
using testsupport::CapturedConsole;
using testsupport::FaultPlan;
using namespace Quillmark_logging;

class TraceLine : public testing::Test {
 protected:
  ~TraceLine() override { setFreeFunctionTrace(false); }
};

TEST_F(TraceLine, PrintsNothingWhileTheTraceIsOff) {
  const CapturedConsole console;
  setFreeFunctionTrace(false);
  traceLine("==> f() %s\r\n", "x");
  EXPECT_EQ(console.text(), "");
}

TEST_F(TraceLine, PrintsTheFormattedTextWhileTheTraceIsOn) {
  const CapturedConsole console;
  setFreeFunctionTrace(true);
  traceLine("==> f() _a=%s, _n=%d, \"%%\"\r\n", "x", 5);
  traceLine("no line end");
  EXPECT_EQ(console.text(), "==> f() _a=x, _n=5, \"%\"\r\nno line end");
}

TEST_F(TraceLine, MayFollowASwitchOfItsOwn) {
  const CapturedConsole console;
  setFreeFunctionTrace(true);
  traceLineIf(false, "%s\r\n", "off");
  setFreeFunctionTrace(false);
  traceLineIf(true, "%s\r\n", "on");
  EXPECT_EQ(console.text(), "on\r\n");
}

TEST_F(TraceLine, NeedsNoSwitchAsAConsoleLine) {
  const CapturedConsole console;
  setFreeFunctionTrace(false);
  consoleLine("%d\r\n", 7);
  EXPECT_EQ(console.text(), "7\r\n");
}

TEST_F(TraceLine, TakesOneWriteHoweverLongItIs) {
  const CapturedConsole console;
  const FaultPlan writes(Call::consoleWrite, 0, platform::noError);
  const std::string longText(100000, 'x');
  setFreeFunctionTrace(true);
  traceLine("%s\r\n", longText.c_str());
  EXPECT_EQ(writes.calls(), 1);
  EXPECT_EQ(console.text(), longText + "\r\n");
}

TEST_F(TraceLine, TakesNoWriteWithoutText) {
  const CapturedConsole console;
  const FaultPlan writes(Call::consoleWrite, 0, platform::noError);
  consoleLine("%s", "");
  EXPECT_EQ(writes.calls(), 0);
}

TEST_F(TraceLine, DisappearsSilentlyWhenTheConsoleFails) {
  const CapturedConsole console;
  const FaultPlan failure(Call::consoleWrite, 1, platform::errorDiskFull);
  consoleLine("lost\r\n");
  consoleLine("kept\r\n");
  EXPECT_EQ(console.text(), "kept\r\n");
}

TEST(BoolName, UsesLowerCase) {
  EXPECT_STREQ(boolName(true), "true");
  EXPECT_STREQ(boolName(false), "false");
}

TEST(ObjectBytes, EndAtANulOrAtTheEndOfTheObject) {
  for (const std::size_t length : {0U, 5U, 15U, 16U, 200U}) {
    const std::string object(length, 'y');
    const std::string bytes = objectBytes(object);
    ASSERT_LE(bytes.size(), sizeof object);
    EXPECT_EQ(std::memcmp(bytes.data(), &object, bytes.size()), 0);
    EXPECT_EQ(bytes.find('\0'), std::string::npos);
    if (bytes.size() < sizeof object) {
      EXPECT_EQ(reinterpret_cast<const char*>(&object)[bytes.size()], '\0');
    }
  }
}

}  // namespace
