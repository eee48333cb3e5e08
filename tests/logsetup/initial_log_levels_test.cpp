// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "quillmark_logging.h"
#include "tests/logsetup/log_setup.h"
#include "tests/logsetup/waited_file.h"
#include "tests/trace/named_lines.h"
#include "tests/trace/traced_console.h"

namespace {

using Quillmark_logging::setInitialLogLevels;
using testsupport::exists;
using testsupport::linesOf;
using testsupport::nativeLineEnds;
using testsupport::readFile;
using testsupport::TracedConsole;

class InitialLogLevels : public testsupport::LogSetup {
 protected:
  bool attach(const std::string& _filter) const {
    sandbox_.writeCfg("CA12", "COMMON_LOG_FILE_FILTER=" + _filter + "\n");
    return setInitialLogLevels(logFile(), "CA12");
  }

  std::string logFile() const { return sandbox_.appData() + "\\file.log"; }
};

TEST_F(InitialLogLevels, AttachTheFileToTheClassesOfTheFilter) {
  EXPECT_TRUE(attach("Init.a;Init.b.error;"));
  log("Init.a.below", "1\n");
  log("Init.b", "2\n");
  log("Init.b.error", "3\n");
  log("Init.c", "4\n");
  EXPECT_EQ(readFile(logFile()), nativeLineEnds("1\n3\n"));
}

TEST_F(InitialLogLevels, DropTheClassAfterTheLastSemicolon) {
  EXPECT_TRUE(attach("Init.a;Init.b"));
  log("Init.a", "1\n");
  log("Init.b", "2\n");
  EXPECT_EQ(readFile(logFile()), nativeLineEnds("1\n"));
}

TEST_F(InitialLogLevels, TraceTheirSteps) {
  const TracedConsole console;
  EXPECT_TRUE(attach("Init.a; ;;Init.b"));
  EXPECT_EQ(sandbox_.masked(linesOf("Quillmark_logging::setInitialLogLevels()", console.text())),
            "==> Quillmark_logging::setInitialLogLevels() _logFile=<APPDATA>\\file.log, TS_MODE=false\r\n"
            "--- Quillmark_logging::setInitialLogLevels() initialLogLevels=\"Init.a; ;;Init.b\"\r\n"
            "--- Quillmark_logging::setInitialLogLevels() tmp=\"Init.a\" tmpCnt=1\r\n"
            "--- Quillmark_logging::setInitialLogLevels() tmp=\" \" tmpCnt=2\r\n"
            "--- Quillmark_logging::setInitialLogLevels() tmp=\"\" tmpCnt=3\r\n"
            "<== Quillmark_logging::setInitialLogLevels()\r\n");
}

TEST_F(InitialLogLevels, AttachNothingWithoutAFilter) {
  sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\n");
  const TracedConsole console;
  EXPECT_FALSE(setInitialLogLevels(logFile(), "CA12"));
  log("Init.a", "1\n");
  EXPECT_FALSE(exists(logFile()));
  EXPECT_EQ(sandbox_.masked(linesOf("Quillmark_logging::setInitialLogLevels()", console.text())),
            "==> Quillmark_logging::setInitialLogLevels() _logFile=<APPDATA>\\file.log, TS_MODE=false\r\n");
}

TEST_F(InitialLogLevels, AttachOneFileToAClassHoweverOftenTheyAreApplied) {
  EXPECT_TRUE(attach("Init.a;"));
  EXPECT_TRUE(attach("Init.a;"));
  log("Init.a", "once\n");
  EXPECT_EQ(readFile(logFile()), nativeLineEnds("once\n"));
}

TEST_F(InitialLogLevels, LeaveTheContentOfTheFile) {
  testsupport::writeFile(logFile(), "before\n");
  EXPECT_TRUE(attach("Init.a;"));
  log("Init.a", "after\n");
  EXPECT_EQ(readFile(logFile()), "before\n" + nativeLineEnds("after\n"));
}

TEST_F(InitialLogLevels, UseWriterThreadsInThreadSafeMode) {
  Quillmark_logging::setTsMode(true);
  const TracedConsole console;
  EXPECT_TRUE(attach("Init.a;"));
  for (const char* message : {"1\n", "2\n", "3\n"})
    log("Init.a", message);
  EXPECT_EQ(testsupport::fileOfLength(logFile(), nativeLineEnds("1\n2\n3\n").size()), nativeLineEnds("1\n2\n3\n"));
  EXPECT_NE(console.text().find("TS_MODE=true\r\n"), std::string::npos);
}

}  // namespace
