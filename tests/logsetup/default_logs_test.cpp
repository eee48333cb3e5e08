// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "quillmark_logging.h"
#include "tests/config/records.h"
#include "tests/logsetup/log_probe.h"
#include "tests/logsetup/log_setup.h"
#include "tests/logsetup/waited_file.h"
#include "tests/support/matches_pattern.h"

namespace {

using namespace Quillmark_logging;
using testsupport::exists;
using testsupport::LogProbe;
using testsupport::MatchesPattern;
using testsupport::nativeLineEnds;
using testsupport::readFile;

constexpr char secondsStamp[] = "[0-9]{8} [0-9]{2}:[0-9]{2}:[0-9]{2}";
constexpr char millisecondsStamp[] = "[0-9]{8} [0-9]{2}:[0-9]{2}:[0-9]{2}[.][0-9]{3}";

// A line of the default set-up.
std::string line(const std::string& _log, const std::string& _stamp, const std::string& _text) {
  return "\\[" + _log + "\\] " + _stamp + " " + _text + "\n";
}

class DefaultLogs : public testsupport::LogSetup {
 protected:
  DefaultLogs() {
    sandbox_.writeInit("CA12", "Def;");
    writeCfg("CA12", "LOG_STATE=TRUE\n");
  }

  // A configuration with a log file, a filter, and these keys.
  void writeCfg(const std::string& _ca, const std::string& _keys) const {
    sandbox_.writeCfg(_ca, "COMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=Def.a;Def.b;\n" + _keys);
  }

  std::string commonLog() const { return sandbox_.logFolder() + "\\common.log"; }

  // What a statement prints on the standard output.
  static std::string printed(const std::string& _log, const std::string& _text) {
    testing::internal::CaptureStdout();
    log(_log, _text);
    std::cout.flush();
    return testing::internal::GetCapturedStdout();
  }
};

// ---- What is set up ----

TEST_F(DefaultLogs, ReachTheCommonLogStampedPrefixedAndFiltered) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  log("Def.a.error", "first");
  log("Def.other", "not in the filter");
  log("Other.a", "not switched on");
  log("Def.b", "second");
  EXPECT_THAT(testsupport::replaced(readFile(commonLog()), nativeLineEnds("\n"), "\n"), testing::EndsWith(" second\n"));
  EXPECT_THAT(
      testsupport::replaced(readFile(commonLog()), nativeLineEnds("\n"), "\n"),
      MatchesPattern("[^[]*" + line("Def.a.error", secondsStamp, "first") + line("Def.b", secondsStamp, "second")));
}

TEST_F(DefaultLogs, HaveMillisecondsWhenTheKeyIsTrue) {
  const LogProbe probe;
  for (const char* value : {"TRUE", "true", "True"}) {
    writeCfg("CA12", std::string("LOG_STATE=TRUE\nMILLISECOND_RESOLUTION=") + value + "\n");
    ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
    EXPECT_THAT(probe.logged("Def.a", "text"), MatchesPattern(line("Def.a", millisecondsStamp, "text"))) << value;
  }
}

TEST_F(DefaultLogs, HaveWholeSecondsOtherwise) {
  const LogProbe probe;
  for (const char* key : {"", "MILLISECOND_RESOLUTION=FALSE\n", "MILLISECOND_RESOLUTION=1\n",
                          "MILLISECOND_RESOLUTION=yes\n", "MILLISECOND_RESOLUTION= TRUE\n"}) {
    writeCfg("CA12", std::string("LOG_STATE=TRUE\n") + key);
    ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
    EXPECT_THAT(probe.logged("Def.a", "text"), MatchesPattern(line("Def.a", secondsStamp, "text"))) << key;
  }
}

TEST_F(DefaultLogs, ReachTheConsoleOnRequest) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", true));
  EXPECT_THAT(printed("Def.other", "text"), MatchesPattern(line("Def.other", secondsStamp, "text")));
}

TEST_F(DefaultLogs, LeaveTheConsoleWhenALaterCallDoesNotRequestIt) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", true));
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  EXPECT_EQ(printed("Def.other", "text"), "");
}

TEST_F(DefaultLogs, FollowTheSecondOfTwoCalls) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", true));
  ASSERT_TRUE(initDefaultLogs("App", "CA12", true));
  const LogProbe probe;
  EXPECT_THAT(printed("Def.a", "text"), MatchesPattern(line("Def.a", secondsStamp, "text")));
  ASSERT_EQ(probe.messages().size(), 1U);
  EXPECT_THAT(probe.messages().front(), MatchesPattern(line("Def.a", secondsStamp, "text")));
  EXPECT_THAT(testsupport::replaced(readFile(commonLog()), nativeLineEnds("\n"), "\n"),
              MatchesPattern("[^[]*" + line("Def.a", secondsStamp, "text")));
}

TEST_F(DefaultLogs, KeepWhatTheApplicationConnected) {
  const LogProbe probe;
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  EXPECT_NE(probe.logged("Def.a", "text"), "");
}

TEST_F(DefaultLogs, ContinueAnExistingFile) {
  testsupport::makeFolders(sandbox_.logFolder());
  testsupport::writeFile(commonLog(), "before\n");
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  log("Def.a", "after");
  EXPECT_THAT(readFile(commonLog()), testing::StartsWith("before\n"));
  EXPECT_THAT(readFile(commonLog()), testing::HasSubstr(" after"));
}

TEST_F(DefaultLogs, UseAnExistingFolder) {
  testsupport::makeFolders(sandbox_.logFolder());
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  log("Def.a", "text");
  EXPECT_THAT(readFile(commonLog()), testing::HasSubstr(" text"));
}

TEST_F(DefaultLogs, AcceptAnEmptyNameOfTheApplication) { EXPECT_TRUE(initDefaultLogs("", "CA12", false)); }

TEST_F(DefaultLogs, NeedNoFilter) {
  sandbox_.writeCfg("CA12", "COMMON_LOG_FILE_NAME=common.log\nLOG_STATE=TRUE\n");
  const LogProbe probe;
  EXPECT_TRUE(initDefaultLogs("App", "CA12", false));
  EXPECT_THAT(probe.logged("Def.a", "text"), MatchesPattern(line("Def.a", secondsStamp, "text")));
  EXPECT_EQ(readFile(commonLog()).find("text"), std::string::npos);
}

TEST_F(DefaultLogs, NeedNoClassList) {
  testsupport::removeAll(sandbox_.initPath("CA12"));
  const LogProbe probe;
  EXPECT_TRUE(initDefaultLogs("App", "CA12", false));
  EXPECT_THAT(probe.logged("Def.a", "text"), MatchesPattern(line("Def.a", secondsStamp, "text")));
}

TEST_F(DefaultLogs, GoThroughWriterThreadsInThreadSafeMode) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  writeCfg("CA12", "LOG_STATE=TRUE\nTS_APPENDERS=true\n");
  load();
  ASSERT_TRUE(initDefaultLogs("App", "GE", false));
  const std::size_t before = readFile(commonLog()).size();
  log("Def.a", "text");
  const std::size_t length = nativeLineEnds("[Def.a] 20261121 10:00:00 text\n").size();
  EXPECT_THAT(testsupport::fileOfLength(commonLog(), before + length), testing::HasSubstr(" text"));
}

// ---- Choice of the CA ----

TEST_F(DefaultLogs, UseTheGenericCaByDefault) {
  writeCfg("GE", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_ROOT=Generic\n");
  EXPECT_TRUE(initDefaultLogs("App", false));
  EXPECT_TRUE(exists(sandbox_.appData() + "\\Generic\\common.log"));
}

TEST_F(DefaultLogs, UseTheCaOfTheEnvironment) {
  testsupport::setEnvironment("DEFAULT_CA_NR", "CA12");
  EXPECT_TRUE(initDefaultLogs("App", false));
  EXPECT_TRUE(exists(commonLog()));
}

TEST_F(DefaultLogs, UseTheGenericCaWhenTheOneOfTheEnvironmentIsMissing) {
  writeCfg("GE", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_ROOT=Generic\nMILLISECOND_RESOLUTION=TRUE\n");
  testsupport::setEnvironment("DEFAULT_CA_NR", "CA7");
  const LogProbe probe;
  EXPECT_TRUE(initDefaultLogs("App", false));
  // The generic file is its own class list, as a "GE" that is not redirected has none.
  enableLogs("Def.a");
  EXPECT_THAT(probe.logged("Def.a", "text"), MatchesPattern(line("Def.a", millisecondsStamp, "text")));
  EXPECT_TRUE(exists(sandbox_.appData() + "\\Generic\\common.log"));
  EXPECT_EQ(testsupport::recordsIn(sandbox_.appData() + "\\Generic\\qmrk.info"),
            std::vector<std::string>{"Invalid of missing configuration file for CA7. Redirecting to configuration file "
                                     "appointed by qmrk_logging_GE.cfg instead. [Called by App]"});
}

}  // namespace
