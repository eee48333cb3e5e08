// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "tests/support/child_process.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/golden.h"
#include "tests/support/private_events.h"
#include "tests/support/text_pattern.h"

// Programs that use the shared library as applications do.

namespace {

class ProcessExit : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { testsupport::usePrivateEvents(); }

  static testsupport::ChildResult run(const std::string& _whichListener) {
    return testsupport::runProgram(QMRK_EXIT_WITH_LISTENER, {_whichListener});
  }

  // Without the line that may come anywhere among those of the thread.
  static std::string masked(const std::string& _text) {
    const std::string rest = testsupport::replaced(_text, "<== LogEventHandler::LogEventHandler()\n", "");
    return testsupport::TextPattern("andle=0x[0-9a-f]+").replacedIn(rest, "andle=<handle>");
  }

  const testsupport::ConfigSandbox sandbox_;
};

TEST_F(ProcessExit, SucceedsWithAnAbandonedListener) {
  const testsupport::ChildResult result = run("abandoned");
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_EQ(result.output, "");
}

TEST_F(ProcessExit, DestroysAStaticListenerAndTracesItsWholeLife) {
  sandbox_.writeCfg("GE", "QMRK_TRACE=TRUE\n");
  const testsupport::ChildResult result = run("static");
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_TRUE(testsupport::matchesGolden(masked(result.output), "control/listener_terminated.txt"));
  EXPECT_EQ(result.errors, "");
}

}  // namespace
