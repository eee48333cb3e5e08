// SPDX-License-Identifier: MIT
// The trace of a whole program: the switches are read by the loader, not by the test. It goes to the standard error
// stream or to the console that the program shares with the test.
#include <gtest/gtest.h>

#include "tests/logsetup/transcript.h"
#include "tests/support/captured_console.h"
#include "tests/support/golden.h"
#include "tests/tools/logtest_run.h"

namespace {

constexpr char traced[] = "QMRK_TRACE=TRUE\n";

class LogTestTrace : public testsupport::LogTestRun {
 protected:
  testing::AssertionResult tracesAs(const std::string& _golden, const std::vector<std::string>& _arguments) const {
    const testsupport::CapturedConsole console;
    const std::string errors = run(_arguments).errors;
    return testsupport::matchesGolden(testsupport::transcript(sandbox_, errors + console.text()), _golden);
  }
};

TEST_F(LogTestTrace, ShowsAFirstStart) {
  sandbox_.writeCfg("GE", traced);
  EXPECT_TRUE(tracesAs("setup_first_start.txt", {"--ca", "CA12"}));
}

TEST_F(LogTestTrace, ShowsAMissingCa) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  sandbox_.writeDemoOfCa12(std::string("LOG_STATE=TRUE\n") + traced);
  EXPECT_TRUE(tracesAs("setup_missing_ca.txt", {"--ca", "CA7"}));
}

TEST_F(LogTestTrace, BeginsWithAGeneratedFileThatSwitchesItOn) {
  sandbox_.writeDemoOfCa12(std::string("LOG_STATE=TRUE\n") + traced);
  EXPECT_TRUE(tracesAs("setup_generated_trace_begins.txt", {"--ca", "CA7"}));
}

TEST_F(LogTestTrace, ShowsARedirectedGenericCa) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  sandbox_.writeDemoOfCa12(std::string("LOG_STATE=TRUE\n") + traced);
  EXPECT_TRUE(tracesAs("setup_redirected_generic.txt", {}));
}

TEST_F(LogTestTrace, ShowsThreadSafeMode) {
  sandbox_.writeCfg("GE", std::string("TS_APPENDERS=True\n") + traced);
  EXPECT_TRUE(tracesAs("setup_thread_safe.txt", {"--ca", "CA12", "--cout"}));
}

}  // namespace
