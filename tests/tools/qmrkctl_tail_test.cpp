// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include "platform/native_path.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/tools/qmrkctl_run.h"

namespace {

using platform::nativePath;
using testing::HasSubstr;
using testsupport::ChildResult;
using testsupport::writeFile;

class QmrkctlTail : public testsupport::QmrkctlRun {
 protected:
  static constexpr char lines[] =
      "[Demo.App.info] 20261121 10:00:00 one\n"
      "[Demo.Net.error] 20261121 10:00:01 two\n"
      "more\n"
      "[Demo.App.warn] 20261121 10:00:02 three\n";
};

TEST_F(QmrkctlTail, ShowsTheLastLinesOfTheCommonLog) {
  writeCommonLog(lines);
  const ChildResult result = qmrkctl({"tail", "-n", "2"});
  EXPECT_EQ(result.output, "more\n[Demo.App.warn] 20261121 10:00:02 three\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.exitCode, 0);
}

TEST_F(QmrkctlTail, ShowsTheLinesThatApplicationsLogged) {
  ASSERT_EQ(logTest({"--lines", "2", "--classes", "Demo.App.info;"}).exitCode, 0);
  EXPECT_THAT(qmrkctl({"tail", "--class", "Demo.App"}).output, HasSubstr(" line 1 of 2\n[Demo.App.info] "));
}

TEST_F(QmrkctlTail, SelectsClassesAndTimes) {
  writeCommonLog(lines);
  EXPECT_EQ(qmrkctl({"tail", "--class", "*.error"}).output, "[Demo.Net.error] 20261121 10:00:01 two\nmore\n");
  EXPECT_EQ(qmrkctl({"tail", "--class", "Demo.App.info;Demo.App.warn"}).output,
            "[Demo.App.info] 20261121 10:00:00 one\n[Demo.App.warn] 20261121 10:00:02 three\n");
  EXPECT_EQ(qmrkctl({"tail", "--since", "2026-11-21 10:00:02"}).output, "[Demo.App.warn] 20261121 10:00:02 three\n");
  EXPECT_EQ(qmrkctl({"tail", "--class", "Nothing"}).output, "");
}

TEST_F(QmrkctlTail, ShowsALogWithItsBackupsAsOneStream) {
  writeCommonLog("");
  writeFile(applicationLog("demo") + ".2", "[A] 20261121 10:00:00 one\n");
  writeFile(applicationLog("demo") + ".1", "[A] 20261121 10:00:01 two\n");
  writeFile(applicationLog("demo"), "[A] 20261121 10:00:02 three");
  EXPECT_EQ(qmrkctl({"tail", "--app", "demo"}).output,
            "[A] 20261121 10:00:00 one\n[A] 20261121 10:00:01 two\n[A] 20261121 10:00:02 three\n");
}

TEST_F(QmrkctlTail, ColorsByClassWhereItIsAskedTo) {
  writeCommonLog(lines);
  EXPECT_EQ(qmrkctl({"tail", "--color", "always"}).output,
            "[Demo.App.info] 20261121 10:00:00 one\n"
            "\x1b[31m[Demo.Net.error] 20261121 10:00:01 two\x1b[0m\n"
            "\x1b[31mmore\x1b[0m\n"
            "\x1b[33m[Demo.App.warn] 20261121 10:00:02 three\x1b[0m\n");
}

TEST_F(QmrkctlTail, EscapesWhatSteersATerminal) {
  writeCommonLog("[A] 20261121 10:00:00 \x1b[2J\xff\ttab\r\n");
  EXPECT_EQ(qmrkctl({"tail"}).output, "[A] 20261121 10:00:00 \\x1b[2J\\xff\\ttab\n");
}

TEST_F(QmrkctlTail, CutsAFileWithoutLineEnds) {
  writeCommonLog(std::string(std::size_t{3} * 1024 * 1024, 'x'));
  const ChildResult result = qmrkctl({"tail"});
  EXPECT_THAT(result.output, HasSubstr("xxx ... [3080192 more bytes]\n"));
  EXPECT_LT(result.output.size(), 70'000U);
}

TEST_F(QmrkctlTail, TellsEachLineAsJson) {
  writeCommonLog(lines);
  const auto object = jsonOf({"tail", "-n", "2"});
  EXPECT_EQ(object["schema"], "qmrkctl.tail/1");
  const auto& shown = object["result"]["lines"];
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_EQ(shown[0]["class"], "Demo.Net.error");
  EXPECT_EQ(shown[0]["text"], "more");
  EXPECT_EQ(shown[1]["local_time"], "2026-11-21 10:00:02");
  EXPECT_EQ(shown[1]["log"], nativePath(commonLog()));
}

TEST_F(QmrkctlTail, SaysWhichLogsThereAreWhenOneIsMissing) {
  const ChildResult none = qmrkctl({"tail"});
  EXPECT_EQ(none.exitCode, 3);
  EXPECT_THAT(none.errors, HasSubstr("there is no log " + nativePath(commonLog()) + " yet"));
  writeCommonLog("");
  writeFile(applicationLog("one"), "");
  writeFile(applicationLog("two"), "");
  const ChildResult other = qmrkctl({"tail", "--app", "x\x1b"});
  EXPECT_EQ(other.exitCode, 3);
  EXPECT_THAT(other.errors, HasSubstr("an application \"x\\x1b\" in "));
  EXPECT_THAT(other.errors, HasSubstr("; there are those of one, two\n"));
}

TEST_F(QmrkctlTail, SaysThatTheConfigurationNamesNoLog) {
  sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\n");
  const ChildResult result = qmrkctl({"tail"});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.errors, HasSubstr("COMMON_LOG_FILE_NAME is missing in " + nativePath(sandbox_.cfgPath("CA12"))));
}

TEST_F(QmrkctlTail, NamesTheCommandThatMayReadALog) {
  writeCommonLog(lines);
  testsupport::denyAccess(commonLog());
  const testsupport::AsUnprivilegedUser unprivileged;
  const ChildResult result = qmrkctl({"tail"});
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_THAT(result.errors, HasSubstr("may not be read"));
  EXPECT_THAT(result.errors, HasSubstr("qmrkctl --user"));
}

TEST_F(QmrkctlTail, RefusesAFolderInPlaceOfALog) {
  testsupport::makeFolders(commonLog());
  const ChildResult result = qmrkctl({"tail"});
  EXPECT_NE(result.exitCode, 0);
  EXPECT_THAT(result.errors, HasSubstr(nativePath(commonLog())));
}

TEST_F(QmrkctlTail, RefusesAWrongCommandLine) {
  for (const auto& arguments : std::vector<std::vector<std::string>>{{"tail", "--since", "soon"},
                                                                     {"tail", "-n", "-1"},
                                                                     {"tail", "-n", "x"},
                                                                     {"tail", "-f", "--json"},
                                                                     {"tail", "surplus"}}) {
    const ChildResult result = qmrkctl(arguments);
    EXPECT_EQ(result.exitCode, 2) << testing::PrintToString(arguments);
    EXPECT_NE(result.errors, "");
  }
}

TEST_F(QmrkctlTail, RefusesAUserWhoDoesNotExist) {
  const ChildResult result = qmrkctl({"--user", "nobody-of-this-name", "tail"});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.errors, HasSubstr("there is no user \"nobody-of-this-name\""));
}

}  // namespace
