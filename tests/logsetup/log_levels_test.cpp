// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "quillmark_logging.h"
#include "tests/config/records.h"
#include "tests/logsetup/log_probe.h"
#include "tests/logsetup/log_setup.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/trace/named_lines.h"
#include "tests/trace/traced_console.h"

namespace {

using namespace Quillmark_logging;
using testsupport::linesOf;
using testsupport::nativeLineEnds;
using testsupport::readFile;
using testsupport::TracedConsole;

class LogLevels : public testsupport::LogSetup {
 protected:
  LogLevels() { sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\n"); }

  void writeFilter(const std::string& _filter) const {
    sandbox_.writeCfg("CA12", "COMMON_LOG_FILE_FILTER=" + _filter + "\n");
  }

  bool update(const std::string& _classList) const {
    sandbox_.writeInit("CA12", _classList);
    return updateLogLevels("CA12");
  }

  // The own lines of a call of updateLogLevels with this class list.
  std::string traceOfUpdate(const std::string& _classList) const {
    const TracedConsole console;
    EXPECT_TRUE(update(_classList));
    return linesOf("Quillmark_logging::updateLogLevels()", console.text());
  }

  std::string logFile() const { return sandbox_.appData() + "\\file.log"; }
};

// ---- Enabled classes ----

TEST_F(LogLevels, SwitchExactlyTheListedClassesOn) {
  EXPECT_TRUE(update("Lev.a;Lev.b.error;"));
  EXPECT_TRUE(isOn("Lev.a"));
  EXPECT_TRUE(isOn("Lev.a.below"));
  EXPECT_TRUE(isOn("Lev.b.error"));
  EXPECT_FALSE(isOn("Lev.b"));
  EXPECT_FALSE(isOn("Lev.c"));
}

TEST_F(LogLevels, FollowTheLatestList) {
  EXPECT_TRUE(update("Lev.a;"));
  EXPECT_TRUE(update("Lev.b;"));
  EXPECT_FALSE(isOn("Lev.a"));
  EXPECT_TRUE(isOn("Lev.b"));
}

TEST_F(LogLevels, NeedNoSemicolonAfterTheLastClass) {
  EXPECT_EQ(traceOfUpdate("Lev.a;Lev.b"),
            "==> Quillmark_logging::updateLogLevels() _ca=CA12\r\n"
            "--- Quillmark_logging::updateLogLevels() enabledLogClasses=\"Lev.a;Lev.b;\"\r\n"
            "--- Quillmark_logging::updateLogLevels() tmp=\"Lev.a\" tmpCnt=1\r\n"
            "--- Quillmark_logging::updateLogLevels() tmp=\"Lev.b\" tmpCnt=2\r\n"
            "<== Quillmark_logging::updateLogLevels()\r\n");
  EXPECT_TRUE(isOn("Lev.a"));
  EXPECT_TRUE(isOn("Lev.b"));
}

TEST_F(LogLevels, JoinWhatALineEndSeparates) {
  EXPECT_TRUE(update("Lev.A\nB;"));
  EXPECT_TRUE(isOn("Lev.AB"));
  EXPECT_FALSE(isOn("Lev.A"));
  EXPECT_FALSE(isOn("B"));
}

TEST_F(LogLevels, JoinWhatACrLfSeparates) {
  EXPECT_TRUE(update("Lev.A\r\nB;\r\n"));
  EXPECT_TRUE(isOn("Lev.AB"));
}

TEST_F(LogLevels, KeepALoneCarriageReturn) {
  EXPECT_TRUE(update("Lev.A\rB;"));
  EXPECT_TRUE(isOn("Lev.A\rB"));
  EXPECT_FALSE(isOn("Lev.AB"));
}

TEST_F(LogLevels, KeepBlanksAroundAClass) {
  EXPECT_EQ(traceOfUpdate(" Lev.a ;"),
            "==> Quillmark_logging::updateLogLevels() _ca=CA12\r\n"
            "--- Quillmark_logging::updateLogLevels() enabledLogClasses=\" Lev.a ;\"\r\n"
            "--- Quillmark_logging::updateLogLevels() tmp=\" Lev.a \" tmpCnt=1\r\n"
            "<== Quillmark_logging::updateLogLevels()\r\n");
  EXPECT_TRUE(isOn(" Lev.a "));
  EXPECT_FALSE(isOn("Lev.a"));
}

TEST_F(LogLevels, TakeTwoSemicolonsAsTwoEmptyPatterns) {
  EXPECT_EQ(traceOfUpdate(";;"),
            "==> Quillmark_logging::updateLogLevels() _ca=CA12\r\n"
            "--- Quillmark_logging::updateLogLevels() enabledLogClasses=\";;\"\r\n"
            "--- Quillmark_logging::updateLogLevels() tmp=\"\" tmpCnt=1\r\n"
            "--- Quillmark_logging::updateLogLevels() tmp=\"\" tmpCnt=2\r\n"
            "<== Quillmark_logging::updateLogLevels()\r\n");
  EXPECT_TRUE(isOn(""));
  EXPECT_FALSE(isOn("Lev.a"));
}

TEST_F(LogLevels, SwitchEverythingOffForAnEmptyList) {
  EXPECT_EQ(traceOfUpdate(""),
            "==> Quillmark_logging::updateLogLevels() _ca=CA12\r\n"
            "--- Quillmark_logging::updateLogLevels() enabledLogClasses is empty. Disabling all log classes.\r\n"
            "<== Quillmark_logging::updateLogLevels()\r\n");
  EXPECT_FALSE(isOn("Lev.a"));
  EXPECT_FALSE(isOn(""));
}

TEST_F(LogLevels, SwitchEverythingOffForAListOfLineEnds) {
  EXPECT_TRUE(update("\n\r\n\n"));
  EXPECT_FALSE(isOn("Lev.a"));
  EXPECT_FALSE(isOn(""));
}

// The last piece is nothing but line ends; a class lies in all others.
TEST_F(LogLevels, JoinAListThatIsReadInPieces) {
  const std::string beginning = "Lev.a;\nLev.";
  const std::string longClass = "Lev." + std::string((2 << 16) - beginning.size() - 1, 'b');
  for (const std::string ending : {";", "c"}) {
    const std::string withoutSemicolon = longClass + (ending == ";" ? "" : ending);
    EXPECT_EQ(traceOfUpdate("Lev.a;\n" + longClass + ending + "\n\n"),
              "==> Quillmark_logging::updateLogLevels() _ca=CA12\r\n"
              "--- Quillmark_logging::updateLogLevels() enabledLogClasses=\"Lev.a;" +
                  withoutSemicolon +
                  ";\"\r\n"
                  "--- Quillmark_logging::updateLogLevels() tmp=\"Lev.a\" tmpCnt=1\r\n"
                  "--- Quillmark_logging::updateLogLevels() tmp=\"" +
                  withoutSemicolon +
                  "\" tmpCnt=2\r\n"
                  "<== Quillmark_logging::updateLogLevels()\r\n");
    EXPECT_TRUE(isOn("Lev.a"));
    EXPECT_TRUE(isOn(withoutSemicolon));
    EXPECT_FALSE(isOn("Lev.c"));
  }
}

TEST_F(LogLevels, LeaveAttachedFilesAlone) {
  writeFilter("Lev.a;");
  EXPECT_TRUE(setInitialLogLevels(logFile(), "CA12"));
  EXPECT_TRUE(update("Lev.b;"));
  log("Lev.a", "off\n");
  EXPECT_TRUE(update("Lev.a;"));
  log("Lev.a", "on\n");
  EXPECT_EQ(readFile(logFile()), nativeLineEnds("on\n"));
}

TEST_F(LogLevels, FollowTheGenericCaWhenTheirOwnIsMissing) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  sandbox_.writeInit("CA12", "Lev.generic;");
  EXPECT_TRUE(updateLogLevels("CA7"));
  EXPECT_TRUE(isOn("Lev.generic"));
  EXPECT_FALSE(isOn("Lev.a"));
  EXPECT_EQ(testsupport::recordsIn(sandbox_.logFolder() + "\\qmrk.info"),
            std::vector<std::string>{"Invalid of missing configuration file for CA7. Redirecting to configuration file "
                                     "appointed by qmrk_logging_GE.cfg instead. [Called by <Internal>]"});
}

// ---- Failures ----

TEST_F(LogLevels, StayUnchangedWithoutAConfiguration) {
  testsupport::removeAll(sandbox_.cfgPath("CA12"));
  disableAllLogs();
  enableSpecifiedLogs("Lev.kept");
  const TracedConsole console;
  EXPECT_FALSE(update("Lev.a;"));
  EXPECT_EQ(linesOf("Quillmark_logging::updateLogLevels()", console.text()),
            "==> Quillmark_logging::updateLogLevels() _ca=CA12\r\n"
            "-!- Quillmark_logging::updateLogLevels() Specified configuration NOT OK\r\n");
  EXPECT_TRUE(isOn("Lev.kept"));
  EXPECT_FALSE(isOn("Lev.a"));
}

TEST_F(LogLevels, StayUnchangedWithoutAClassList) {
  disableAllLogs();
  enableSpecifiedLogs("Lev.kept");
  const TracedConsole console;
  EXPECT_FALSE(updateLogLevels("CA12"));
  EXPECT_EQ(linesOf("Quillmark_logging::updateLogLevels()", console.text()),
            "==> Quillmark_logging::updateLogLevels() _ca=CA12\r\n"
            "<!= Quillmark_logging::updateLogLevels() ERROR: Failed to get enabled log class/es.\r\n");
  EXPECT_TRUE(isOn("Lev.kept"));
  EXPECT_FALSE(isOn("Lev.a"));
}

TEST_F(LogLevels, StayUnchangedWhenTheClassListIsUnreadable) {
  sandbox_.writeInit("CA12", "Lev.a;");
  testsupport::denyAccess(sandbox_.initPath("CA12"));
  disableAllLogs();
  const testsupport::AsUnprivilegedUser user;
  EXPECT_FALSE(updateLogLevels("CA12"));
  EXPECT_FALSE(isOn("Lev.a"));
}

// ---- The form without a CA ----

TEST_F(LogLevels, FollowTheGenericCaByDefault) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  sandbox_.writeInit("CA12", "Lev.a;");
  const TracedConsole console;
  EXPECT_TRUE(updateLogLevels());
  EXPECT_TRUE(isOn("Lev.a"));
  EXPECT_FALSE(isOn("Lev.b"));
  EXPECT_TRUE(
      console.text().starts_with("==> Quillmark_logging::updateLogLevels() Using default ca=GE\r\n"
                                 "<== Quillmark_logging::updateLogLevels() Using default CA=GE"
                                 "==> Quillmark_logging::updateLogLevels() _ca=GE\r\n"))
      << console.text();
}

TEST_F(LogLevels, FollowTheCaOfTheEnvironment) {
  sandbox_.writeInit("CA12", "Lev.a;");
  testsupport::setEnvironment("DEFAULT_CA_NR", "ca12");
  const TracedConsole console;
  EXPECT_TRUE(updateLogLevels());
  EXPECT_TRUE(isOn("Lev.a"));
  EXPECT_FALSE(isOn("Lev.b"));
  EXPECT_TRUE(console.text().starts_with(
      "==> Quillmark_logging::updateLogLevels() Using default ca=GE\r\n"
      "<== Quillmark_logging::updateLogLevels() Environment variable DEFAULT_CA_NR found, value is ca12"
      "==> Quillmark_logging::updateLogLevels() _ca=ca12\r\n"))
      << console.text();
}

// ---- Direct switches ----

TEST_F(LogLevels, ObeyDirectSwitchesUntilTheNextUpdate) {
  disableAllLogs();
  EXPECT_FALSE(isOn("Lev.a"));
  enableSpecifiedLogs("Lev.a");
  EXPECT_TRUE(isOn("Lev.a"));
  EXPECT_FALSE(isOn("Lev.b"));
  enableAllLogs();
  EXPECT_TRUE(isOn("Lev.b"));
  EXPECT_TRUE(update("Lev.c;"));
  EXPECT_FALSE(isOn("Lev.a"));
}

TEST_F(LogLevels, TakeADirectPatternAsItIs) {
  disableAllLogs();
  enableSpecifiedLogs("Lev.a;Lev.b");
  EXPECT_TRUE(isOn("Lev.a;Lev.b"));
  EXPECT_FALSE(isOn("Lev.a"));
}

TEST_F(LogLevels, TraceDirectSwitches) {
  const TracedConsole console;
  enableAllLogs();
  enableSpecifiedLogs("Lev.a");
  disableAllLogs();
  EXPECT_EQ(console.text(),
            "==> Quillmark_logging::enableAllLogs()\r\n"
            "<== Quillmark_logging::enableAllLogs()\r\n"
            "==> Quillmark_logging::enableSpecifiedLogs()\r\n"
            "<== Quillmark_logging::enableSpecifiedLogs()\r\n"
            "==> Quillmark_logging::disableAllLogs()\r\n"
            "<== Quillmark_logging::disableAllLogs()\r\n");
}

}  // namespace
