// SPDX-License-Identifier: MIT
#include "tests/logsetup/application_logs.h"
#include "tests/support/golden.h"
#include "tests/trace/traced_console.h"

namespace {

using Quillmark_logging::createApplicationSpecificLogFile;
using testsupport::rotationKeys;
using testsupport::TracedConsole;

class ApplicationLogTrace : public testsupport::ApplicationLogs {};

TEST_F(ApplicationLogTrace, CallsTheFolderAFileWhenItIsCreated) {
  const TracedConsole console;
  EXPECT_TRUE(create("A;B;", true));
  EXPECT_EQ(ownLines(console.text()),
            "==> Quillmark_logging::createApplicationSpecificLogFile(string, string, string, bool) _logLevel=\"CA12\", "
            "_fileName=\"App\",  _ca=A;B;, _overWrite=true\r\n"
            "--- Quillmark_logging::createApplicationSpecificLogFile() "
            "commonLogFilePath=\"<APPDATA>\\Orvane\\Quillmark\\Logging\"\r\n"
            "--- Quillmark_logging::createApplicationSpecificLogFile() Creating directory structure: "
            "<APPDATA>\\Orvane\\Quillmark\\Logging\\Application logs\r\n"
            "--- Quillmark_logging::createApplicationSpecificLogFile() File "
            "<APPDATA>\\Orvane\\Quillmark\\Logging\\Application logs successfully created.\r\n"
            "--- Quillmark_logging::createApplicationSpecificLogFile() Log rotation is disabled.\r\n"
            "<== Quillmark_logging::createApplicationSpecificLogFile() OK\r\n");
}

TEST_F(ApplicationLogTrace, ShowsEveryStepOfARotatedFile) {
  configure("COMMON_LOG_FILE_ROOT=Orvane\\Quillmark\\Logging\n" + std::string(rotationKeys) +
            "SPEC_LOG_FILE_LIMIT=50\nSPEC_NR_OF_LOG_FILES=3\n");
  writeExisting("old");
  const TracedConsole console;
  EXPECT_TRUE(create("A;B;", true));
  EXPECT_TRUE(testsupport::matchesGolden(sandbox_.masked(console.text()), "application_log_file_rotating.txt"));
}

}  // namespace
