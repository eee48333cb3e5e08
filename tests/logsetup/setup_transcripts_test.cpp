// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "quillmark_logging.h"
#include "tests/logsetup/log_setup.h"
#include "tests/logsetup/transcript.h"
#include "tests/support/captured_console.h"
#include "tests/support/golden.h"
#include "tests/support/without_read_permission.h"

namespace {

using Quillmark_logging::initDefaultLogs;
using testsupport::CapturedConsole;
using testsupport::matchesGolden;
using testsupport::removeAll;

constexpr char traced[] = "QMRK_TRACE=TRUE\n";

// The complete trace of a set-up, with the switches of the process as the configuration files set them at load time.
class SetupTranscript : public testsupport::LogSetup {
 protected:
  SetupTranscript() { sandbox_.writeDemoOfCa12("LOG_STATE=TRUE\n"); }

  std::string setUp(const std::string& _ca, bool _writeToCout = false) {
    const CapturedConsole console;
    done_ = initDefaultLogs("LogTest", _ca, _writeToCout);
    return testsupport::transcript(sandbox_, console.text());
  }

  std::string setUpWithoutCa() {
    const CapturedConsole console;
    done_ = initDefaultLogs("LogTest", false);
    return testsupport::transcript(sandbox_, console.text());
  }

  bool done_ = false;
};

TEST_F(SetupTranscript, ShowsAFirstStart) {
  sandbox_.writeCfg("GE", traced);
  load();
  EXPECT_TRUE(matchesGolden(setUp("CA12"), "setup_first_start.txt"));
  EXPECT_TRUE(done_);
}

TEST_F(SetupTranscript, ShowsALaterStartThatCallsTheFolderAFile) {
  sandbox_.writeCfg("GE", traced);
  load();
  setUp("CA12");
  EXPECT_TRUE(matchesGolden(setUp("CA12"), "setup_later_start.txt"));
  EXPECT_TRUE(done_);
}

TEST_F(SetupTranscript, ShowsAMissingCaBesideAGenericFile) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  sandbox_.writeDemoOfCa12(std::string("LOG_STATE=TRUE\n") + traced);
  load();
  EXPECT_TRUE(matchesGolden(setUp("CA7"), "setup_missing_ca.txt"));
  EXPECT_TRUE(done_);
}

// The trace begins when the new file has been written: it leads to a file that switches the trace on.
TEST_F(SetupTranscript, ShowsAGenerationThatSwitchesTheTraceOn) {
  sandbox_.writeDemoOfCa12(std::string("LOG_STATE=TRUE\n") + traced);
  load();
  EXPECT_TRUE(matchesGolden(setUp("CA7"), "setup_generated_trace_begins.txt"));
  EXPECT_TRUE(done_);
  EXPECT_FALSE(Quillmark_logging::isTraceEnabled());
}

// The generic file vanishes between load and set-up, so the generator and its listing are traced.
TEST_F(SetupTranscript, ShowsAGenerationThatLeavesTheTraceOn) {
  sandbox_.writeCfg("GE", traced);
  load();
  removeAll(sandbox_.cfgPath("GE"));
  sandbox_.writeDemoOfCa12(std::string("LOG_STATE=TRUE\n") + traced);
  EXPECT_TRUE(matchesGolden(setUp("CA7"), "setup_generated_trace_stays.txt"));
  EXPECT_TRUE(done_);
}

// Afterwards only the configuration store traces, by the value of load time.
TEST_F(SetupTranscript, ShowsAGenerationThatSwitchesTheTraceOff) {
  sandbox_.writeCfg("GE", traced);
  load();
  removeAll(sandbox_.cfgPath("GE"));
  EXPECT_TRUE(matchesGolden(setUp("CA7"), "setup_generated_trace_ends.txt"));
  EXPECT_TRUE(done_);
  EXPECT_TRUE(Quillmark_logging::isTraceEnabled());
}

TEST_F(SetupTranscript, ShowsAnUnreadableFile) {
  sandbox_.writeCfg("GE", traced);
  load();
  std::string trace;
  {
    const testsupport::WithoutReadPermission denied(sandbox_.cfgPath("CA12"));
    trace = setUp("CA12");
  }
  EXPECT_TRUE(matchesGolden(trace, "setup_unreadable.txt"));
  EXPECT_FALSE(done_);
}

TEST_F(SetupTranscript, ShowsDisabledLogging) {
  sandbox_.writeCfg("GE", traced);
  sandbox_.writeDemoOfCa12("LOG_STATE=FALSE\n");
  load();
  EXPECT_TRUE(matchesGolden(setUp("CA12"), "setup_disabled.txt"));
  EXPECT_FALSE(done_);
}

TEST_F(SetupTranscript, ShowsARedirectedGenericCa) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  sandbox_.writeDemoOfCa12(std::string("LOG_STATE=TRUE\n") + traced);
  load();
  EXPECT_TRUE(matchesGolden(setUpWithoutCa(), "setup_redirected_generic.txt"));
  EXPECT_TRUE(done_);
}

TEST_F(SetupTranscript, ShowsACaOfTheEnvironment) {
  sandbox_.writeCfg("GE", traced);
  sandbox_.writeDemoOfCa12("LOG_STATE=FALSE\n");
  load();
  testsupport::setEnvironment("DEFAULT_CA_NR", "ca12");
  EXPECT_TRUE(matchesGolden(setUpWithoutCa(), "setup_environment.txt"));
}

TEST_F(SetupTranscript, ShowsThreadSafeMode) {
  sandbox_.writeCfg("GE", std::string("TS_APPENDERS=True\n") + traced);
  load();
  EXPECT_TRUE(matchesGolden(setUp("CA12", true), "setup_thread_safe.txt"));
  EXPECT_TRUE(done_);
}

}  // namespace
