// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/support/config_sandbox.h"
#include "tests/support/temporary_folder.h"
#include "tools/qmrkctl/check/similar_name.h"
#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/finding_catalogue.h"
#include "tools/system/file_name.h"

namespace {

using namespace qmrkctl;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// What is missing in no text of the tests below unless they say so.
const std::string soundText = "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=c.log\nCOMMON_LOG_FILE_FILTER=A;B;\n";

class CheckTest : public ::testing::Test {
 protected:
  // "code@line:column" of each finding of a text in a file by itself.
  static std::vector<std::string> codesIn(const std::string& _text, FileRole _role = FileRole::cfg,
                                          const std::string& _name = "qmrk_logging_CA1.cfg") {
    const testsupport::TemporaryFolder folder;
    const std::string path = folder.path() + "/" + _name;
    testsupport::writeFile(path, _text);
    const ConfigurationFile file = readConfigurationFile(ownViewpoint(), path, "");
    return codesOf(checkFile(ownViewpoint(), file, _role));
  }

  static std::vector<std::string> codesInInit(const std::string& _text) {
    return codesIn(_text, FileRole::init, "qmrk_logging_CA1.init");
  }

  static std::vector<std::string> codesOf(const std::vector<Finding>& _findings) {
    std::vector<std::string> codes;
    for (const Finding& finding : _findings)
      codes.push_back(finding.code + "@" + std::to_string(finding.line) + ":" + std::to_string(finding.column));
    return codes;
  }
};

TEST_F(CheckTest, FindsNothingInASoundFile) {
  EXPECT_THAT(codesIn(soundText), IsEmpty());
  EXPECT_THAT(
      codesIn(std::string("# a comment = of any kind\n\n") + soundText + "SPEC_LOG_ROTATION=true  # kept\r\n\n# end"),
      IsEmpty());
  EXPECT_THAT(codesIn("CA_NR=GE\nREDIRECT_CA_NR=CA1\n", FileRole::cfg, "qmrk_logging_GE.cfg"), IsEmpty());
  EXPECT_THAT(codesIn(soundText + "REDIRECT_CA_NR=GE\n", FileRole::cfg, "qmrk_logging_GE.cfg"), IsEmpty());
  EXPECT_THAT(codesInInit("A;\r\nB.*;\n*.error;C"), IsEmpty());
}

TEST_F(CheckTest, FindsBytesThatNoEditorShows) {
  EXPECT_THAT(codesIn(std::string("\xEF\xBB\xBF") + soundText), Contains("Q101@1:1"));
  EXPECT_THAT(codesIn(std::string("\xFF\xFEL\0O\0", 6)), Contains("Q102@1:1"));
  EXPECT_THAT(codesIn(soundText + std::string("TS_APPENDERS=TR\0E\n", 18)), Contains("Q103@4:16"));
  EXPECT_THAT(codesIn(soundText + "TS_APPENDERS=TRUE\r\r\n"), Contains("Q104@4:18"));
  EXPECT_THAT(codesIn(soundText + "TS_APPENDERS=TRUE"), ElementsAre("Q105@4:1"));
  EXPECT_THAT(codesInInit("A;\rB;"), Contains("Q104@1:3"));
}

TEST_F(CheckTest, TakesARepeatedKeyWithTheSameValueEasily) {
  const auto severityOf = [](const std::string& _line) {
    const testsupport::TemporaryFolder folder;
    const std::string path = folder.path() + "/qmrk_logging_CA1.cfg";
    testsupport::writeFile(path, soundText + _line);
    return checkFile(ownViewpoint(), readConfigurationFile(ownViewpoint(), path, ""), FileRole::cfg).at(0).severity;
  };
  EXPECT_EQ(severityOf("LOG_STATE=TRUE\n"), Severity::note);
  EXPECT_EQ(severityOf("LOG_STATE=true\n"), Severity::warning);
}

TEST_F(CheckTest, StopsInATextThatIsSomethingElse) {
  std::string log;
  for (int line = 0; line < 5000; ++line)
    log += "# [Demo.App.info] 20261122 10:00:00 = x;\n";
  EXPECT_THAT(codesInInit(log), testing::SizeIs(testing::Le(300U)));
  EXPECT_THAT(codesIn(testsupport::replaced(log, "#", "KEY")), testing::SizeIs(testing::Le(300U)));
  std::string repeated;
  for (int line = 0; line < 5000; ++line)
    repeated += "LOG_STATE=TRUE\n";
  EXPECT_THAT(codesIn(soundText + repeated), testing::SizeIs(testing::Le(300U)));
}

TEST_F(CheckTest, FindsKeysThatNothingReads) {
  EXPECT_THAT(codesIn(soundText + "LOG_STAET=TRUE\n"), ElementsAre("Q301@4:1"));
  EXPECT_THAT(codesIn(soundText + "log_state=TRUE\n"), ElementsAre("Q301@4:1"));
  EXPECT_THAT(codesIn(soundText + "TS_APPENDERS =TRUE\n"), ElementsAre("Q302@4:1"));
  EXPECT_THAT(codesIn(soundText + "TS_APPENDERS=\nQMRK_TRACE=TRUE\n"), ElementsAre("Q304@4:1"));
  EXPECT_THAT(codesIn(soundText + "TS_APPENDERS=\n"), ElementsAre("Q304@4:1"));
  EXPECT_THAT(codesIn(soundText + "junk\nTS_APPENDERS=TRUE\n"), ElementsAre("Q305@4:1"));
  EXPECT_THAT(codesIn(soundText + "TS_APPENDERS TRUE\n"), ElementsAre("Q305@4:1"));
  EXPECT_THAT(codesIn(soundText + "LOG_STATE=TRUE\n"), ElementsAre("Q306@4:1"));
  EXPECT_THAT(codesIn(soundText + "# =\n=====\nTS_APPENDERS=TRUE\n"), ElementsAre("Q308@5:1"));
  for (const char* const name : {"qmrk_logging_GE.cfg", "draft.cfg"})
    EXPECT_THAT(codesIn("REDIRECT_CA_NR=CA1\nLOG_STATE=TRUE\n", FileRole::cfg, name), ElementsAre("Q325@2:1")) << name;
  EXPECT_THAT(codesIn(soundText + "REDIRECT_CA_NR=CA2\n"), ElementsAre("Q331@4:1"));
  EXPECT_THAT(codesIn(soundText + "REDIRECT_CA_NR=GE\n", FileRole::cfg, "qmrk_logging_GE.cfg"), IsEmpty());
}

TEST_F(CheckTest, FindsValuesThatDoSomethingElse) {
  EXPECT_THAT(codesIn(soundText + "TS_APPENDERS=yes\n"), ElementsAre("Q303@4:14"));
  EXPECT_THAT(codesIn(soundText + "COMMON_LOG_FILE_ROOT=a#b\n"), ElementsAre("Q307@4:23"));
  EXPECT_THAT(codesIn(soundText + "COMMON_LOG_FILE_ROOT= \n"), ElementsAre("Q319@4:22"));
  EXPECT_THAT(codesIn(soundText + "COMMON_LOG_FILE_ROOT=/var/log\n"), ElementsAre("Q320@4:22"));
  EXPECT_THAT(codesIn(soundText + "COMMON_LOG_FILE_ROOT=C:\\logs\n"), ElementsAre("Q320@4:22"));
  EXPECT_THAT(codesIn(soundText + "COMMON_LOG_FILE_ROOT= logs\n"), ElementsAre("Q322@4:22"));
  EXPECT_THAT(codesIn(soundText + "COMMON_LOG_FILE_ROOT=a\tb\n"), ElementsAre("Q323@4:22"));
  EXPECT_THAT(codesIn(soundText + "CA_NR=CA2\n"), ElementsAre("Q324@4:7"));
  EXPECT_THAT(codesIn("LOG_STATE=FALSE\nCOMMON_LOG_FILE_NAME=a/..\n"),
              ElementsAre("Q311@1:11", "Q313@2:22", "Q312@0:0"));
  EXPECT_THAT(codesIn(""), ElementsAre("Q309@0:0", "Q310@0:0", "Q312@0:0"));
}

TEST_F(CheckTest, FindsLimitsThatLimitNothing) {
  const auto limits = [](const std::string& _limit, const std::string& _number) {
    return codesIn(soundText + ("SPEC_LOG_FILE_LIMIT=" + _limit + "\nSPEC_NR_OF_LOG_FILES=" + _number +
                                "\nSPEC_LOG_ROTATION=TRUE\n"));
  };
  EXPECT_THAT(limits("5000", "2"), IsEmpty());
  EXPECT_THAT(limits("0", "2"), ElementsAre("Q314@4:21"));
  EXPECT_THAT(limits("abc", "2"), ElementsAre("Q314@4:21"));
  EXPECT_THAT(limits("1", "2"), ElementsAre("Q315@4:21"));
  EXPECT_THAT(limits("10", "2"), ElementsAre("Q332@4:21"));
  EXPECT_THAT(limits("4095", "2"), ElementsAre("Q332@4:21"));
  EXPECT_THAT(limits("4096", "2"), IsEmpty());
  EXPECT_THAT(limits("10 MB", "1"), ElementsAre("Q317@4:21", "Q316@5:22"));
  EXPECT_THAT(limits("3000000000", "5"), ElementsAre("Q317@4:21"));
  EXPECT_THAT(limits("99999999999999999999", "5"), ElementsAre("Q317@4:21"));
  EXPECT_THAT(limits("5000", "20000"), ElementsAre("Q327@5:22"));
  EXPECT_THAT(codesIn(soundText + "SPEC_NR_OF_LOG_FILES=9\nSPEC_LOG_ROTATION=TRUE\n"), ElementsAre("Q318@0:0"));
}

TEST_F(CheckTest, FindsLimitsThatAreNotReadWithoutTheRotation) {
  const std::string limits = "SPEC_LOG_FILE_LIMIT=0\nSPEC_NR_OF_LOG_FILES=1\n";
  EXPECT_THAT(codesIn(soundText + limits), ElementsAre("Q328@4:21", "Q328@5:22"));
  EXPECT_THAT(codesIn(soundText + limits + "SPEC_LOG_ROTATION=FALSE\n"), IsEmpty()) << "so it is meant";
}

TEST_F(CheckTest, FindsPathsThatLeadElsewhere) {
  EXPECT_THAT(codesIn(soundText + "COMMON_LOG_FILE_ROOT=../logs\n"), ElementsAre("Q321@4:22"));
  EXPECT_THAT(codesIn(soundText + "COMMON_LOG_FILE_ROOT=a\\..\n"), ElementsAre("Q321@4:22"));
  EXPECT_THAT(codesIn(soundText + "COMMON_LOG_FILE_ROOT=a..b\\c\n"), IsEmpty());
  EXPECT_THAT(codesIn(soundText + "COMMON_LOG_FILE_ROOT='logs'\n"), ElementsAre("Q326@4:22"));
  EXPECT_THAT(codesIn(soundText + "COMMON_LOG_FILE_ROOT=a/" + std::string(256, 'b') + "\n"), ElementsAre("Q501@4:22"));
  const auto name = [](const std::string& _name) {
    return codesIn("LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=" + _name + "\nCOMMON_LOG_FILE_FILTER=A;\n");
  };
  EXPECT_THAT(name("logs\\common.log"), IsEmpty()) << "the library creates the folder";
  EXPECT_THAT(name("logs\\"), ElementsAre("Q313@2:22"));
  EXPECT_THAT(name("/var/log/common.log"), ElementsAre("Q320@2:22"));
  EXPECT_THAT(name("../common.log"), ElementsAre("Q321@2:22"));
  EXPECT_THAT(name("\"common.log\""), ElementsAre("Q326@2:22"));
  EXPECT_THAT(name(std::string(256, 'n')), ElementsAre("Q313@2:22"));
}

TEST_F(CheckTest, FindsVariablesThatNothingReplaces) {
  for (const std::string root : {"%APPDATA%\\Logs", "a/%X%", "$HOME/logs", "${HOME}", "~", "~/logs", "~\\logs"})
    EXPECT_THAT(codesIn(soundText + "COMMON_LOG_FILE_ROOT=" + root + "\n"), ElementsAre("Q329@4:22")) << root;
  for (const std::string root : {"100%", "%%", "% a%", "5$", "$5", "backup~", "~anna"})
    EXPECT_THAT(codesIn(soundText + "COMMON_LOG_FILE_ROOT=" + root + "\n"), IsEmpty()) << root;
}

TEST_F(CheckTest, FindsAFilterOfBlanks) {
  EXPECT_THAT(codesIn("LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=c.log\nCOMMON_LOG_FILE_FILTER= \n"),
              ElementsAre("Q312@3:24"));
}

TEST_F(CheckTest, FindsWhatIsWrongWithAClassList) {
  EXPECT_THAT(codesIn("LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=c.log\nCOMMON_LOG_FILE_FILTER=A; B;;C\n"),
              ElementsAre("Q402@3:26", "Q407@3:29", "Q401@3:30"));
  EXPECT_THAT(codesInInit("# A\nB;\n"), ElementsAre("Q403@1:1"));
  EXPECT_THAT(codesInInit("A;\nB; // why\n"), ElementsAre("Q403@2:4"));
  EXPECT_THAT(codesInInit("A; \nB;\n"), ElementsAre("Q402@1:3"));
  for (const char* const entry : {"A.;", ".A;", "A..B;"})
    EXPECT_THAT(codesInInit(entry), ElementsAre("Q410@1:1"));
  EXPECT_THAT(codesInInit("A;\nB # why\n"), ElementsAre("Q403@2:3"));
  EXPECT_THAT(codesInInit("A\nB;\n"), ElementsAre("Q404@1:1"));
  EXPECT_THAT(codesInInit("A,B;"), ElementsAre("Q410@1:1"));
  EXPECT_THAT(codesInInit("\n\n"), ElementsAre("Q408@0:0"));
}

TEST_F(CheckTest, ComparesTheClassListWithTheFilterAndWithRunningApplications) {
  const testsupport::ConfigSandbox sandbox;
  sandbox.writeCfg("GE", "REDIRECT_CA_NR=CA1\n");
  sandbox.writeCfg("CA1", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=c.log\nCOMMON_LOG_FILE_FILTER=Demo.App;Demo.Net;\n");
  sandbox.writeInit("CA1", "Demo.App.error;Demo;\nDemo.app;\nDemo.Net;\n");
  const Viewpoint own = ownViewpoint();
  const Configuration configuration = readConfiguration(own, "");
  EXPECT_THAT(codesOf(checkConfiguration(own, configuration)), ElementsAre("Q405@2:1"));
  EXPECT_THAT(checkConfiguration(own, configuration).front().text, HasSubstr("did you mean Demo.App?"));
  EXPECT_THAT(codesOf(checkConfiguration(own, configuration, {"Demo.App", "Demo.App.error"})),
              ElementsAre("Q405@2:1", "Q406@2:1", "Q406@3:1"));
}

TEST_F(CheckTest, SaysThatItHasNotExaminedEverything) {
  std::string text;
  for (int line = 0; line < 101; ++line)
    text += "A" + std::to_string(line) + ".;";
  const auto codes = codesInInit(text);
  EXPECT_EQ(codes.size(), 101U);
  EXPECT_EQ(codes.back(), "Q106@0:0");
  EXPECT_EQ(codesInInit(text.substr(0, text.find("A99"))).size(), 99U);
}

TEST_F(CheckTest, TakesBlanksAtTheEndOfAFileAsNothing) {
  EXPECT_THAT(codesIn(soundText + "   "), IsEmpty());
  EXPECT_THAT(codesIn(soundText + "\x1A"), IsEmpty());
  EXPECT_THAT(codesIn(soundText + "   x"), ElementsAre("Q305@4:1"));
}

TEST_F(CheckTest, FindsNamesOfTheCommonLogThatTheLibraryUsesItself) {
  const auto codes = [](const std::string& _name) {
    return codesIn("LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=" + _name + "\nCOMMON_LOG_FILE_FILTER=A;\n");
  };
  for (const char* const name : {"qmrk.info", ".\\qmrk.info", "/./qmrk.info", "Application logs",
                                 "Application logs\\a_log.txt", "Application logs\\b/a_log.txt.12"})
    EXPECT_THAT(codes(name), Contains("Q330@2:22")) << name;
  for (const char* const name : {"qmrk.info.log", "logs\\qmrk.info", "Application logs.txt", "a_log.txt", "a_log.txt.1",
                                 "Application logs\\a.log", "Application logs\\a_log.txt.x", "x"})
    EXPECT_THAT(codes(name), IsEmpty()) << name;
  EXPECT_THAT(codes("a\\..\\qmrk.info"), ElementsAre("Q330@2:22", "Q321@2:22"));
}

// On Windows a name of a device leads to the device, which is no log.
TEST_F(CheckTest, FindsNamesThatTheSystemHasForNoFile) {
  const bool isWindows = toolsystem::isSameFileName("a", "A");
  const auto codes = [](const std::string& _key, const std::string& _value) {
    return codesIn("LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=c.log\nCOMMON_LOG_FILE_FILTER=A;\n" + _key + "=" + _value +
                   "\n");
  };
  for (const char* const name : {"NUL", "nul.log", "Con .x", "logs\\COM1", "lpt9.1.txt", "a?.log", "a*", "a<b>"}) {
    const auto found = codes("COMMON_LOG_FILE_NAME", name);
    EXPECT_EQ(std::ranges::count(found, "Q313@4:22"), isWindows ? 1 : 0) << name;
  }
  EXPECT_EQ(std::ranges::count(codes("COMMON_LOG_FILE_ROOT", "a?\\b"), "Q501@4:22"), isWindows ? 1 : 0);
  for (const char* const name : {"nullog", "com.log", "COM10", "con1.log", "common.log.", "a'b!.log"})
    EXPECT_THAT(codes("COMMON_LOG_FILE_ROOT", name), IsEmpty()) << name;
  EXPECT_EQ(std::ranges::count(codes("COMMON_LOG_FILE_NAME", "QMRK.info"), "Q330@4:22"), isWindows ? 1 : 0);
}

// The set-up fails where it cannot create a folder, not where one cannot be used.
TEST_F(CheckTest, TellsAFileInPlaceOfTheLogFolderFromOneAboveIt) {
  const testsupport::ConfigSandbox sandbox;
  sandbox.writeCfg("GE", "REDIRECT_CA_NR=CA1\n");
  sandbox.writeCfg("CA1", soundText + "COMMON_LOG_FILE_ROOT=a\\b\n");
  sandbox.writeInit("CA1", "A;\n");
  const auto effect = [] {
    const Viewpoint own = ownViewpoint();
    return checkConfiguration(own, readConfiguration(own, "")).at(0).effect;
  };
  testsupport::makeFolders(sandbox.appData() + "\\a");
  testsupport::writeFile(sandbox.appData() + "\\a\\b", "");
  EXPECT_THAT(effect(), HasSubstr("says true and every line is lost"));
  testsupport::removeAll(sandbox.appData() + "\\a");
  testsupport::writeFile(sandbox.appData() + "\\a", "");
  EXPECT_THAT(effect(), HasSubstr("the set-up fails"));
}

TEST_F(CheckTest, SuggestsNoEntryThatIsWrongItself) {
  const testsupport::ConfigSandbox sandbox;
  sandbox.writeCfg("GE", "REDIRECT_CA_NR=CA1\n");
  sandbox.writeCfg("CA1", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=c.log\nCOMMON_LOG_FILE_FILTER=Demo.App ;\n");
  sandbox.writeInit("CA1", "Demo.App;\n");
  const Viewpoint own = ownViewpoint();
  const std::vector<Finding> findings = checkConfiguration(own, readConfiguration(own, ""));
  EXPECT_THAT(codesOf(findings), ElementsAre("Q402@3:24", "Q405@1:1"));
  EXPECT_THAT(findings.back().text, Not(HasSubstr("did you mean")));
}

TEST_F(CheckTest, NamesWhatWasProbablyMeant) {
  const std::vector<std::string_view> known = {"LOG_STATE", "QMRK_TRACE", "TS_APPENDERS"};
  EXPECT_EQ(similarName("LOG_STAET", known), "LOG_STATE");
  EXPECT_EQ(similarName("ts_appenders", known), "TS_APPENDERS");
  EXPECT_EQ(similarName("VERSION", known), "");
  EXPECT_EQ(similarName(std::string(100'000, 'L'), known), "");
  EXPECT_EQ(editDistance("abc", "acb"), 1);
  EXPECT_EQ(editDistance("", "abc"), 3);
}

TEST_F(CheckTest, HasACatalogueWithoutGapsOrRepetition) {
  std::set<std::string_view> codes;
  for (const FindingKind& kind : findingCatalogue()) {
    EXPECT_TRUE(codes.insert(kind.code).second) << kind.code;
    EXPECT_FALSE(kind.meaning.empty() || kind.effect.empty() || kind.fix.empty()) << kind.code;
  }
  EXPECT_EQ(findingKind("Q999"), nullptr);
  EXPECT_THROW(findingOf("Q999", {}, ""), std::invalid_argument);
}

}  // namespace
