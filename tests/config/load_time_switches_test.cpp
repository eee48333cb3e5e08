// SPDX-License-Identifier: MIT
#include "config/load_time_switches.h"

#include <gtest/gtest.h>

#include "config/cfg_data_manager.h"
#include "tests/support/captured_console.h"
#include "tests/support/child_process.h"
#include "tests/support/config_sandbox.h"
#include "trace/trace_flags.h"

namespace {

using namespace Quillmark_logging;
using testsupport::ConfigSandbox;

class LoadTimeSwitches : public testing::Test {
 protected:
  ~LoadTimeSwitches() override {
    setLoadTimeTrace(false);
    setFreeFunctionTrace(false);
    setTsMode(false);
  }

  // What a new process, which loads the shared library, tells of its switches.
  static std::string switchesOfANewProcess() {
    const testsupport::ChildResult probe = testsupport::runProgram(QMRK_LOAD_TIME_PROBE, {});
    EXPECT_EQ(probe.exitCode, 0);
    EXPECT_EQ(probe.errors, "") << "the reads of the load are not traced";
    return probe.output;
  }

  ConfigSandbox sandbox_;
};

TEST_F(LoadTimeSwitches, StayOffWithoutAGenericConfiguration) {
  readLoadTimeSwitches();
  EXPECT_FALSE(loadTimeTrace());
  EXPECT_FALSE(freeFunctionTrace());
  EXPECT_FALSE(tsMode());
}

TEST_F(LoadTimeSwitches, FollowTheirKeys) {
  sandbox_.writeCfg("GE", "QMRK_TRACE=true\n");
  readLoadTimeSwitches();
  EXPECT_TRUE(loadTimeTrace());
  EXPECT_TRUE(freeFunctionTrace());
  EXPECT_FALSE(tsMode());
  sandbox_.writeCfg("GE", "TS_APPENDERS=True\nQMRK_TRACE=yes\n");
  readLoadTimeSwitches();
  EXPECT_FALSE(loadTimeTrace());
  EXPECT_FALSE(freeFunctionTrace());
  EXPECT_TRUE(tsMode());
}

TEST_F(LoadTimeSwitches, FollowTheRedirectionOfTheGenericCa) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\nQMRK_TRACE=TRUE\n");
  sandbox_.writeCfg("CA12", "TS_APPENDERS=TRUE\n");
  readLoadTimeSwitches();
  EXPECT_FALSE(loadTimeTrace());
  EXPECT_TRUE(tsMode());
}

TEST_F(LoadTimeSwitches, TraceNothingWhileTheyAreRead) {
  sandbox_.writeCfg("GE", "QMRK_TRACE=TRUE\n");
  const testsupport::CapturedConsole console;
  setLoadTimeTrace(true);
  setFreeFunctionTrace(true);
  readLoadTimeSwitches();
  EXPECT_EQ(console.text(), "");
}

TEST_F(LoadTimeSwitches, ComeIntoForceWhenTheLibraryIsLoaded) {
  EXPECT_EQ(switchesOfANewProcess(), "off");
  for (const char* const value : {"TRUE", "true", "True"}) {
    sandbox_.writeCfg("GE", "QMRK_TRACE=" + std::string(value) + "\n");
    EXPECT_EQ(switchesOfANewProcess(), "on") << value;
  }
  for (const char* const value : {"yes", "1", "FALSE"}) {
    sandbox_.writeCfg("GE", "QMRK_TRACE=" + std::string(value) + "\n");
    EXPECT_EQ(switchesOfANewProcess(), "off") << value;
  }
}

}  // namespace
