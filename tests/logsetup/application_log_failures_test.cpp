// SPDX-License-Identifier: MIT
#include "tests/logsetup/application_logs.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/fault_plan.h"
#include "tests/support/without_read_permission.h"
#include "tests/trace/traced_console.h"

namespace {

using Quillmark_logging::createApplicationSpecificLogFile;
using testsupport::exists;
using testsupport::log;
using testsupport::Names;
using testsupport::readFile;
using testsupport::rotationKeys;
using testsupport::TracedConsole;

class CreateApplicationLogFile : public testsupport::ApplicationLogs {};

TEST_F(CreateApplicationLogFile, FailsForAnEmptyFileNameAndChangesNothing) {
  const TracedConsole console;
  EXPECT_FALSE(create("App", true, ""));
  EXPECT_EQ(console.text(),
            "==> Quillmark_logging::createApplicationSpecificLogFile(string, string, string, bool) _logLevel=\"CA12\", "
            "_fileName=\"\",  _ca=App, _overWrite=true\r\n"
            "<!= Quillmark_logging::createApplicationSpecificLogFile() Empty file name passed as an argument.\r\n");
  EXPECT_FALSE(exists(sandbox_.logFolder()));
}

TEST_F(CreateApplicationLogFile, FailsForAnUnreadableConfigurationAndConnectsNothing) {
  const testsupport::WithoutReadPermission denied(sandbox_.cfgPath("CA12"));
  const TracedConsole console;
  EXPECT_FALSE(create("App"));
  EXPECT_NE(console.text().find(
                "-!- Quillmark_logging::createApplicationSpecificLogFile() Specified configuration NOT OK\r\n"),
            std::string::npos);
  EXPECT_FALSE(exists(folder()));
}

// The folder of application data is known in every environment that a test can make, so its query is made to fail.
TEST_F(CreateApplicationLogFile, FailsForAnUnknownApplicationDataFolderAndConnectsNothing) {
  const testsupport::FaultPlan plan(platform::Call::shellFolder, 2, platform::errorPathNotFound);
  const TracedConsole console;
  EXPECT_FALSE(create("App"));
  EXPECT_NE(console.text().find("<!= Quillmark_logging::createApplicationSpecificLogFile() ERROR: Failed to retrieve "
                                "commonLogFilePath!\r\n"),
            std::string::npos);
  EXPECT_FALSE(exists(folder()));
}

TEST_F(CreateApplicationLogFile, FailsWhenItCannotCreateAFolderAndKeepsTheOthers) {
  configure("COMMON_LOG_FILE_ROOT=Made\\" + std::string(300, 'x') + "\n");
  const TracedConsole console;
  EXPECT_FALSE(create("App"));
  const std::string lines = ownLines(console.text());
  EXPECT_NE(lines.find("<!= Quillmark_logging::createApplicationSpecificLogFile() ERROR: Failed to create "
                       "<APPDATA>\\Made\\" +
                       std::string(300, 'x') + "\\Application logs\r\n"),
            std::string::npos);
  EXPECT_TRUE(exists(sandbox_.appData() + "\\Made"));
  EXPECT_TRUE(testsupport::namesIn(sandbox_.appData() + "\\Made").empty());
}

TEST_F(CreateApplicationLogFile, SucceedsWithTheDefaultsOfMissingSettings) {
  configure(rotationKeys);
  const TracedConsole console;
  EXPECT_TRUE(create("App"));
  EXPECT_NE(console.text().find("-!- Quillmark_logging::createApplicationSpecificLogFile() Using default values\r\n"),
            std::string::npos);
}

TEST_F(CreateApplicationLogFile, SucceedsEvenIfItCannotOpenTheFile) {
  for (const char* rotation : {"", rotationKeys}) {
    configure(rotation);
    testsupport::makeFolders(folder());
    testsupport::denyWriting(folder());
    const testsupport::AsUnprivilegedUser user;
    const TracedConsole console;
    EXPECT_TRUE(create("App"));
    EXPECT_NO_THROW(log("App", "lost"));
    EXPECT_EQ(names(), Names{});
  }
}

TEST_F(CreateApplicationLogFile, SucceedsWithoutAClassListAndKeepsTheAppenders) {
  testsupport::removeAll(sandbox_.initPath("CA12"));
  Quillmark_logging::enableAllLogs();
  EXPECT_TRUE(create("App"));
  log("App", "text");
  EXPECT_EQ(readFile(file()), "text");
}

}  // namespace
