// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include "platform/native_path.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/private_events.h"
#include "tests/tools/qmrkctl_run.h"

namespace {

using platform::nativePath;
using testing::HasSubstr;
using testing::Not;
using testsupport::ChildResult;

// Judged for an application that would start now.
class QmrkctlWhy : public testsupport::QmrkctlRun {
 protected:
  static void SetUpTestSuite() {
    testsupport::usePrivateProcesses();
    testsupport::usePrivateEvents();
  }
  QmrkctlWhy() { writeCommonLog("[Demo.App.info] 20261121 10:00:00 x\n"); }

  static ChildResult why(const std::string& _class) { return qmrkctl({"--ca", "CA12", "why", _class}); }

  // The step of that name has failed, with that finding, and the next one is not shown.
  static void expectFailure(const std::string& _step, const std::string& _code, const std::string& _next,
                            const std::string& _class = "Demo.App.info") {
    const ChildResult result = why(_class);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, HasSubstr("FAIL    " + _step));
    EXPECT_THAT(result.output, HasSubstr("error " + _code + " "));
    EXPECT_THAT(result.output, HasSubstr("\n  fix: "));
    EXPECT_THAT(result.output, Not(HasSubstr(" " + _next)));
  }
};

TEST_F(QmrkctlWhy, ShowsEachStepOfALineThatGetsThrough) {
  const ChildResult result = why("Demo.App.info");
  EXPECT_EQ(result.exitCode, 0);
  for (const char* const line :
       {"unknown application", "ok      CA            CA12 asked for", "ok      configuration ",
        "ok      LOG_STATE     on", "ok      file name     common.log in line", "ok      folder ", "ok      file ",
        "ok      filter        \"Demo.App\"", "ok      class list    \"Demo.App\"", "ok      space ",
        "ok      last line     2026-11-21 10:00:00"})
    EXPECT_THAT(result.output, HasSubstr(line));
}

TEST_F(QmrkctlWhy, StopsAtAMissingConfiguration) {
  testsupport::removeAll(sandbox_.cfgPath("CA12"));
  expectFailure("configuration", "Q204", "LOG_STATE ");
}

TEST_F(QmrkctlWhy, StopsAtLoggingThatIsOff) {
  sandbox_.writeDemoOfCa12("LOG_STATE=yes\n");
  expectFailure("LOG_STATE", "Q303", "file name");
  sandbox_.writeDemoOfCa12("LOG_STATE=FALSE\n");
  expectFailure("LOG_STATE", "Q311", "file name");
  sandbox_.writeDemoOfCa12("");
  expectFailure("LOG_STATE", "Q309", "file name");
}

// The fix of a step alone would add a line that nothing reads either.
TEST_F(QmrkctlWhy, SaysWhyAKeyIsMissing) {
  sandbox_.writeCfg("CA12", "\xEF\xBB\xBFLOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=x\n");
  expectFailure("LOG_STATE", "Q101", "file name");
  sandbox_.writeCfg("CA12", "LOG_STATE =TRUE\nCOMMON_LOG_FILE_NAME=x\n");
  expectFailure("LOG_STATE", "Q302", "file name");
  sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=x");
  expectFailure("file name", "Q105", "folder");
  sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=x\ncommon_log_file_filter=Demo.App;\n");
  expectFailure("filter", "Q301", "class list");
}

TEST_F(QmrkctlWhy, StopsAtAGenericFileThatLeadsNowhere) {
  const auto generic = [](const std::string& _class) { return qmrkctl({"--ca", "GE", "why", _class}).output; };
  sandbox_.writeCfg("GE", "CA_NR=GE\n");
  EXPECT_THAT(generic("Demo.App.info"), HasSubstr("FAIL    LOG_STATE"));
  EXPECT_THAT(generic("Demo.App.info"), HasSubstr("\n  fix: add the line REDIRECT_CA_NR=CA12\n"));
  sandbox_.writeCfg("GE", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=x\nCOMMON_LOG_FILE_FILTER=Demo.App;Demo.Net;\n");
  EXPECT_THAT(generic("Demo.App.info"), HasSubstr("FAIL    class list"));
  EXPECT_THAT(generic("Demo.App.info"), HasSubstr("\n  fix: add the line REDIRECT_CA_NR=CA12\n"));
}

TEST_F(QmrkctlWhy, SaysWhatStandsInPlaceOfAConfiguration) {
  testsupport::removeAll(sandbox_.cfgPath("CA12"));
  testsupport::makeFolders(sandbox_.cfgPath("CA12"));
  expectFailure("configuration", "Q213", "LOG_STATE ");
  testsupport::removeAll(sandbox_.cfgPath("GE"));
  testsupport::makeFolders(sandbox_.cfgPath("GE"));
  testsupport::removeAll(sandbox_.cfgPath("CA12"));
  expectFailure("configuration", "Q213", "LOG_STATE ");
}

TEST_F(QmrkctlWhy, SaysWhyNoEntrySelectsTheClass) {
  sandbox_.writeInit("CA12", "Demo.App\nDemo.Net\n");
  expectFailure("class list", "Q404", "space");
  sandbox_.writeInit("CA12",
                     "\xEF\xBB\xBF"
                     "Demo.App;\n");
  expectFailure("class list", "Q101", "space");
  sandbox_.writeInit("CA12", "# what is on\nDemo.App;\n");
  expectFailure("class list", "Q403", "space");
  sandbox_.writeInit("CA12", "Demo.Net,Demo.App;\n");
  expectFailure("class list", "Q410", "space");
}

TEST_F(QmrkctlWhy, StopsAtAMissingFileName) {
  sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\n");
  expectFailure("file name", "Q310", "folder");
}

TEST_F(QmrkctlWhy, StopsAtTheFilter) {
  expectFailure("filter", "Q405", "class list", "Other.App");
  expectFailure("filter", "Q401", "class list", "Demo.Disk");
  sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=x\n");
  expectFailure("filter", "Q312", "class list");
}

TEST_F(QmrkctlWhy, StopsAtTheClassList) { expectFailure("class list", "Q616", "space", "Demo.Net.info"); }

TEST_F(QmrkctlWhy, KnowsThatAllClassesAreOnWithoutAClassList) {
  testsupport::removeAll(sandbox_.initPath("CA12"));
  EXPECT_THAT(why("Demo.App.info").output,
              HasSubstr("is missing: classes stay as they are, at a start all of them on"));
  ASSERT_EQ(logTest({"--ca", "CA12", "--classes", "Demo.Net.debug;"}).exitCode, 0);
  EXPECT_THAT(qmrkctl({"tail", "--class", "Demo.Net.debug"}).output, HasSubstr("line 1 of")) << "so it is";
}

TEST_F(QmrkctlWhy, NamesAnEntryThatIsAlmostTheClass) {
  sandbox_.writeInit("CA12", "Demo.Net; demo.app;\n");
  EXPECT_THAT(why("Demo.App.info").output, HasSubstr("\" demo.app\" differs in blanks or letter case"));
  EXPECT_THAT(why("Demo.App.info").output, HasSubstr("init:1:10 "));
  EXPECT_THAT(why("Demo.App.info").output, HasSubstr("fix: write \"Demo.App;\" in place of \" demo.app;\""));
}

TEST_F(QmrkctlWhy, JudgesWithTheRightsOfTheUser) {
  testsupport::denyWriting(commonLog());
  const testsupport::AsUnprivilegedUser unprivileged;
  expectFailure("file ", "Q502", "filter");
}

// Each application has a log of its own beside the common one.
TEST_F(QmrkctlWhy, IsNotStoppedByTheLogOfAnApplication) {
  const std::string inPlaceOfLog = logRoot() + "\\Application logs\\shop_log.txt";
  testsupport::makeFolders(inPlaceOfLog);
  EXPECT_THAT(qmrkctl({"--ca", "CA12", "check"}).output, HasSubstr("error Q505 " + nativePath(inPlaceOfLog)));
  EXPECT_EQ(why("Demo.App.info").exitCode, 0);
}

TEST_F(QmrkctlWhy, SaysThatNoLineOfTheClassIsThere) {
  EXPECT_THAT(why("Demo.App.other").output, HasSubstr("unknown last line"));
}

TEST_F(QmrkctlWhy, TellsTheChainAsJson) {
  const auto object = jsonOf({"--ca", "CA12", "why", "Demo.Net.info"});
  EXPECT_EQ(object["schema"], "qmrkctl.why/1");
  EXPECT_EQ(object["result"]["class"], "Demo.Net.info");
  const auto& chain = object["result"]["chains"][0];
  EXPECT_EQ(chain["reaches_the_log"], false);
  EXPECT_EQ(chain["steps"].back()["state"], "FAIL");
  EXPECT_EQ(chain["steps"].back()["step"], "class list");
  EXPECT_EQ(object["findings"][0]["code"], "Q616");
}

TEST_F(QmrkctlWhy, EscapesHostileNames) {
  const ChildResult result = why("a\x1b[2J\nb");
  EXPECT_THAT(result.output, HasSubstr("selects a\\x1b[2J\\nb"));
  EXPECT_THAT(result.output, Not(HasSubstr("\x1b")));
}

TEST_F(QmrkctlWhy, SaysWhatItCannotFind) {
  EXPECT_EQ(qmrkctl({"why"}).exitCode, 2);
  EXPECT_EQ(qmrkctl({"--app", "no application of this name", "why", "A"}).exitCode, 3);
  EXPECT_EQ(qmrkctl({"--pid", "999999999", "why", "A"}).exitCode, 3);
}

}  // namespace
