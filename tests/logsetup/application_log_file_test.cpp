// SPDX-License-Identifier: MIT
#include <chrono>
#include <thread>

#include "tests/logsetup/application_logs.h"
#include "tests/trace/traced_console.h"

namespace {

using Quillmark_logging::createApplicationSpecificLogFile;
using testsupport::exists;
using testsupport::log;
using testsupport::readFile;
using testsupport::rotationKeys;
using testsupport::TracedConsole;

class ApplicationLogFile : public testsupport::ApplicationLogs {};

// Which logs are connected.

TEST_F(ApplicationLogFile, TakesTextWithoutASemicolonAsOnePattern) {
  EXPECT_TRUE(create("App"));
  log("App.error", "1");
  log("Apple", "lost");
  EXPECT_EQ(readFile(file()), "1");
}

TEST_F(ApplicationLogFile, TakesAnEmptyTextAsTheLogWithoutAName) {
  EXPECT_TRUE(create(""));
  log("", "1");
  log("App", "lost");
  EXPECT_EQ(readFile(file()), "1");
}

TEST_F(ApplicationLogFile, DropsTextAfterTheLastSemicolon) {
  EXPECT_TRUE(create("A;B"));
  log("A", "1");
  log("B", "lost");
  EXPECT_EQ(readFile(file()), "1");
}

TEST_F(ApplicationLogFile, ConnectsEveryTerminatedPatternToOneFile) {
  for (const char* rotation : {"", rotationKeys}) {
    configure(rotation);
    const std::string name = *rotation == '\0' ? "Plain" : "Rolling";
    EXPECT_TRUE(create("A;B;", false, name));
    log("A", "1\n");
    log("B", "2\n");
    log("A", "3\n");
    log("C", "lost\n");
    EXPECT_EQ(readFile(file(name)), testsupport::nativeLineEnds("1\n2\n3\n"));
    disconnectAll();
  }
}

TEST_F(ApplicationLogFile, ConnectsTheEmptyPatternOnceForTwoSemicolons) {
  const TracedConsole console;
  EXPECT_TRUE(create(";;"));
  EXPECT_NE(console.text().find("--- Quillmark_logging::setInitialLogLevels() tmp=\"\" tmpCnt=1\r\n"),
            std::string::npos);
  EXPECT_NE(console.text().find("--- Quillmark_logging::setInitialLogLevels() tmp=\"\" tmpCnt=2\r\n"),
            std::string::npos);
  log("", "once");
  EXPECT_EQ(readFile(file()), "once");
}

TEST_F(ApplicationLogFile, AppliesTheClassListToTheConnectedLogs) {
  sandbox_.writeInit("CA12", "App.error;");
  EXPECT_TRUE(create("App"));
  log("App.error", "on");
  log("App.info", "off");
  EXPECT_EQ(readFile(file()), "on");
}

// Without rotation.

TEST_F(ApplicationLogFile, EmptiesTheFileOnlyWhenAskedToOverwrite) {
  writeExisting("old\n");
  EXPECT_TRUE(create("App", false));
  log("App", "kept");
  EXPECT_EQ(readFile(file()), "old\nkept");
  EXPECT_TRUE(create("App", true));
  log("App", "new");
  EXPECT_EQ(readFile(file()), "new");
}

TEST_F(ApplicationLogFile, EmptiesTheFileOncePerCallForAllPatterns) {
  writeExisting("old\n");
  EXPECT_TRUE(create("A;B;", true));
  log("A", "1");
  log("B", "2");
  log("A", "3");
  EXPECT_EQ(readFile(file()), "123");
  EXPECT_TRUE(create("A;B;", true));
  log("B", "4");
  log("A", "5");
  EXPECT_EQ(readFile(file()), "45");
}

TEST_F(ApplicationLogFile, RotatesOnlyIfTheKeyIsTrueInAnyLetterCase) {
  const auto rolls = [&](const std::string& _value) {
    const std::string name = "Of" + _value;
    configure("SPEC_LOG_ROTATION=" + _value + "\nSPEC_LOG_FILE_LIMIT=0\nSPEC_NR_OF_LOG_FILES=2\n");
    EXPECT_TRUE(create("App", false, name));
    log("App", "text");
    return exists(file(name) + ".1");
  };
  EXPECT_TRUE(rolls("TRUE"));
  EXPECT_TRUE(rolls("True"));
  EXPECT_FALSE(rolls("1"));
  EXPECT_FALSE(rolls("yes"));
}

// Repeated calls.

TEST_F(ApplicationLogFile, KeepsOneAppenderAfterASecondCallForAPattern) {
  for (const char* rotation : {"", rotationKeys}) {
    configure(rotation);
    const std::string name = *rotation == '\0' ? "Plain" : "Rolling";
    EXPECT_TRUE(create("App", false, name));
    EXPECT_TRUE(create("App", false, name));
    log("App", "once ");
    EXPECT_EQ(readFile(file(name)), "once ") << name;
    disconnectAll();
  }
}

TEST_F(ApplicationLogFile, KeepsBothAppendersWhenRotationChangesBetweenCalls) {
  EXPECT_TRUE(create("App"));
  configure(rotationKeys);
  EXPECT_TRUE(create("App"));
  log("App", "twice ");
  EXPECT_EQ(readFile(file()), "twice twice ");
}

TEST_F(ApplicationLogFile, SurvivesUnregisterApplication) {
  EXPECT_TRUE(create("App"));
  const TracedConsole console;
  EXPECT_TRUE(Quillmark_logging::unregisterApplication("never registered"));
  EXPECT_TRUE(Quillmark_logging::unregisterApplication("App", "CA12"));
  EXPECT_EQ(console.text(),
            "<=> Quillmark_logging::unregisterApplication() _appName=never registered\r\n"
            "<=> Quillmark_logging::unregisterApplication() _appName=App\r\n");
  log("App", "still there");
  EXPECT_EQ(readFile(file()), "still there");
}

// Thread-safe mode.

// What the file holds as soon as that is the expected text, or at last after a time that no writer thread needs.
std::string textOnceItIs(const std::string& _expected, const std::string& _file) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  std::string text;
  while (text != _expected && std::chrono::steady_clock::now() < end) {
    std::this_thread::yield();
    if (exists(_file)) text = readFile(_file);
  }
  return text;
}

TEST_F(ApplicationLogFile, UsesAWriterPerAppenderInThreadSafeMode) {
  Quillmark_logging::setTsMode(true);
  for (const char* rotation : {"", rotationKeys}) {
    configure(rotation);
    const std::string name = *rotation == '\0' ? "Plain" : "Rolling";
    EXPECT_TRUE(create("App;", false, name));
    log("App", "one ");
    log("App", "two");
    EXPECT_EQ(textOnceItIs("one two", file(name)), "one two");
    disconnectAll();
  }
}

// The form without a CA.

TEST_F(ApplicationLogFile, UsesTheGenericCaByDefault) {
  sandbox_.writeCfg("GE", "LOG_STATE=TRUE\nREDIRECT_CA_NR=CA12\nCOMMON_LOG_FILE_ROOT=Unused\n");
  const TracedConsole console;
  EXPECT_TRUE(createApplicationSpecificLogFile("App", "Own", true));
  EXPECT_EQ(console.text().find("<=> Quillmark_logging::createApplicationSpecificLogFile() _fileName=\"Own\", "
                                "_logLevel=\"App\", _ca=GE (using default), _overWrite=true\r\n"
                                "==> Quillmark_logging::createApplicationSpecificLogFile(string, string, string, bool) "
                                "_logLevel=\"GE\", _fileName=\"Own\",  _ca=App, _overWrite=true\r\n"),
            0U);
  log("App", "text");
  EXPECT_EQ(readFile(file("Own")), "text");
}

TEST_F(ApplicationLogFile, UsesTheCaOfTheEnvironment) {
  testsupport::setEnvironment("DEFAULT_CA_NR", "CA12");
  const TracedConsole console;
  EXPECT_TRUE(createApplicationSpecificLogFile("App", "Own", false));
  EXPECT_EQ(console.text().find("<=> Quillmark_logging::createApplicationSpecificLogFile() _fileName=\"Own\", "
                                "_logLevel=\"App\", _ca=GE (using default), _overWrite=false\r\n"
                                "--- Quillmark_logging::createApplicationSpecificLogFile() Environment variable "
                                "DEFAULT_CA_NR found, value is CA12"
                                "==> Quillmark_logging::createApplicationSpecificLogFile(string, string, string, bool) "
                                "_logLevel=\"CA12\", _fileName=\"Own\",  _ca=App, _overWrite=false\r\n"),
            0U);
  log("App", "text");
  EXPECT_EQ(readFile(file("Own")), "text");
}

TEST_F(ApplicationLogFile, UsesTheGenericCaWhenTheOneOfTheEnvironmentIsMissing) {
  testsupport::setEnvironment("DEFAULT_CA_NR", "CA99");
  sandbox_.writeCfg("GE",
                    "COMMON_LOG_FILE_ROOT=Generic\nSPEC_LOG_ROTATION=TRUE\nSPEC_LOG_FILE_LIMIT=0\n"
                    "SPEC_NR_OF_LOG_FILES=2\n");
  EXPECT_TRUE(createApplicationSpecificLogFile("App", "Own", false));
  Quillmark_logging::enableAllLogs();
  log("App", "text");
  EXPECT_EQ(readFile(sandbox_.appData() + "\\Generic\\Application logs\\Own_log.txt.1"), "text");
}

// Names of files.

TEST_F(ApplicationLogFile, LiesInASubFolderWhenItsNameHasBackslashes) {
  configure(rotationKeys);
  testsupport::makeFolders(folder() + "\\Sub");
  EXPECT_TRUE(create("App", false, "Sub\\App"));
  log("App", "text");
  EXPECT_EQ(readFile(folder() + "\\Sub\\App_log.txt"), "text");
}

}  // namespace
