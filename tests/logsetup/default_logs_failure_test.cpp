// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "quillmark_logging.h"
#include "tests/config/records.h"
#include "tests/logsetup/log_probe.h"
#include "tests/logsetup/log_setup.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/fault_plan.h"
#include "tests/support/without_read_permission.h"
#include "tests/trace/named_lines.h"
#include "tests/trace/traced_console.h"

namespace {

using platform::Call;
using Quillmark_logging::initDefaultLogs;
using testsupport::exists;
using testsupport::FaultPlan;
using testsupport::LogProbe;
using testsupport::TracedConsole;

constexpr char entryLine[] =
    "==> Quillmark_logging::initDefaultLogs(string, string, bool) Called by \"App\", _ca=CA12, _writeToCout=true, "
    "TS_MODE=false\r\n";

class InitDefaultLogs : public testsupport::LogSetup {
 protected:
  InitDefaultLogs() {
    sandbox_.writeInit("CA12", "Fail;");
    writeCfg("LOG_STATE=TRUE\n" + name());
  }

  void writeCfg(const std::string& _keys) const {
    sandbox_.writeCfg("CA12", "COMMON_LOG_FILE_ROOT=Logs\nCOMMON_LOG_FILE_FILTER=Fail;\n" + _keys);
  }

  static std::string name() { return "COMMON_LOG_FILE_NAME=common.log\n"; }

  // Fails, with these own lines after the entry, and changes nothing in the log manager.
  void expectFailure(const std::string& _ownLines) const {
    const LogProbe probe;
    Quillmark_logging::disableLogs("*");
    Quillmark_logging::enableLogs("Kept");
    const TracedConsole console;
    EXPECT_FALSE(initDefaultLogs("App", "CA12", true));
    EXPECT_EQ(sandbox_.masked(testsupport::linesOf("Quillmark_logging::initDefaultLogs(", console.text())),
              entryLine + _ownLines);
    EXPECT_EQ(probe.logged("Kept", "text"), "text");
    EXPECT_FALSE(isOn("Fail"));
    EXPECT_FALSE(exists(folder() + "\\common.log"));
  }

  std::string folder() const { return sandbox_.appData() + "\\Logs"; }
};

TEST_F(InitDefaultLogs, FailsWhenLogStateIsNotTrue) {
  for (const char* state : {"", "LOG_STATE= \n", "LOG_STATE=1\n", "LOG_STATE=yes\n", "LOG_STATE=FALSE\n",
                            "LOG_STATE=TRUE!\n", "LOG_STATE=TRU\n", "LOG_STATE= TRUE\n", "log_state=TRUE\n"}) {
    SCOPED_TRACE(state);
    writeCfg(state + name());
    expectFailure(
        "--- Quillmark_logging::initDefaultLogs() Logging is disabled...\r\n"
        "<!= Quillmark_logging::initDefaultLogs() FAILED\r\n");
    EXPECT_FALSE(exists(folder()));
  }
}

TEST_F(InitDefaultLogs, AcceptsLogStateInAnyLetterCase) {
  writeCfg("LOG_STATE=true\n" + name());
  EXPECT_TRUE(initDefaultLogs("App", "CA12", false));
}

TEST_F(InitDefaultLogs, FailsWhenTheCfgFileIsMissingAndCannotBeGenerated) {
  testsupport::removeAll(sandbox_.cfgPath("CA12"));
  expectFailure("-!- Quillmark_logging::initDefaultLogs() Specified configuration NOT OK\r\n");
}

TEST_F(InitDefaultLogs, FailsWhenTheCfgFileIsUnreadable) {
  const testsupport::WithoutReadPermission denied(sandbox_.cfgPath("CA12"));
  expectFailure("-!- Quillmark_logging::initDefaultLogs() Specified configuration NOT OK\r\n");
}

// The check asks for the path first, so only the second query can fail here.
TEST_F(InitDefaultLogs, FailsAndRecordsWhenTheCfgPathIsUnknown) {
  const FaultPlan plan(Call::shellFolder, 2, platform::errorPathNotFound);
  expectFailure("<!= Quillmark_logging::initDefaultLogs() Failed to get QMRK cfg path for CA12.\r\n");
  EXPECT_EQ(
      testsupport::recordsIn(sandbox_.logFolder() + "\\qmrk.info"),
      std::vector<std::string>{"Unspecified error. Failed to get configuration file path for CA12 [Called by App]"});
}

TEST_F(InitDefaultLogs, FailsWithoutAnotherLineWhenTheCommonLogHasNoName) {
  writeCfg("LOG_STATE=TRUE\n");
  expectFailure("");
  EXPECT_FALSE(exists(folder()));
}

// After the check, the path, the flag and the name of the file have asked for the folder of the configuration.
TEST_F(InitDefaultLogs, FailsWithoutAnotherLineWhenTheUsersFolderIsUnknown) {
  const FaultPlan plan(Call::shellFolder, 5, platform::errorPathNotFound);
  expectFailure("--- Quillmark_logging::initDefaultLogs() commonLogFileName=\"common.log\"\r\n");
}

TEST_F(InitDefaultLogs, FailsWhenItCannotCreateTheLogFolder) {
  testsupport::denyWriting(sandbox_.appData());
  const testsupport::AsUnprivilegedUser user;
  expectFailure(
      "--- Quillmark_logging::initDefaultLogs() commonLogFileName=\"common.log\"\r\n"
      "--- Quillmark_logging::initDefaultLogs() commonLogFilePath=\"<APPDATA>\\Logs\"\r\n"
      "--- Quillmark_logging::initDefaultLogs() Creating directory structure: <APPDATA>\\Logs\r\n"
      "<!= Quillmark_logging::initDefaultLogs() ERROR: Failed to create <APPDATA>\\Logs\r\n");
}

TEST_F(InitDefaultLogs, AcceptsAnExistingLogFolder) {
  testsupport::makeFolders(folder());
  const TracedConsole console;
  EXPECT_TRUE(initDefaultLogs("App", "CA12", false));
  EXPECT_NE(sandbox_.masked(console.text())
                .find("--- Quillmark_logging::initDefaultLogs() Directory <APPDATA>\\Logs succesfully created.\r\n"),
            std::string::npos);
}

}  // namespace
