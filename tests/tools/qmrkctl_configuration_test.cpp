// SPDX-License-Identifier: MIT
// The commands that show a configuration and write a first one, as whole programs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/native_path.h"
#include "tests/support/child_process.h"
#include "tests/support/config_sandbox.h"

namespace {

using platform::nativePath;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testsupport::ChildResult;
using testsupport::exists;
using testsupport::readFile;

class QmrkctlConfiguration : public ::testing::Test {
 protected:
  QmrkctlConfiguration() {
    sandbox_.writeDemoOfCa12("LOG_STATE=TRUE\n");
    sandbox_.writeCfg("GE", "CA_NR=GE\nREDIRECT_CA_NR=CA12\n");
  }

  static ChildResult qmrkctl(const std::vector<std::string>& _arguments) {
    return testsupport::runProgram(QMRKCTL, _arguments);
  }

  testsupport::ConfigSandbox sandbox_;
};

TEST_F(QmrkctlConfiguration, WhereNamesEachPathWithTheRuleThatChoseIt) {
  const ChildResult result = qmrkctl({"where"});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_THAT(result.output, AllOf(HasSubstr(".cfg: " + nativePath(sandbox_.cfgPath("CA12"))),
                                   HasSubstr("REDIRECT_CA_NR in line 2 of qmrk_logging_GE.cfg"),
                                   HasSubstr("COMMON_LOG_FILE_NAME in line 3"), HasSubstr("missing; ")));
}

TEST_F(QmrkctlConfiguration, WhereDoesNotKnowAUserWhoIsNotThere) {
  const ChildResult result = qmrkctl({"--user", "no such user", "where"});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.errors, HasSubstr("there is no user"));
}

TEST_F(QmrkctlConfiguration, ShowTellsWhereAValueStandsOrThatItIsTheDefault) {
  const ChildResult result = qmrkctl({"show"});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_THAT(result.output, AllOf(HasSubstr("LOG_STATE=TRUE  (" + nativePath(sandbox_.cfgPath("CA12")) + ":2)"),
                                   HasSubstr("SPEC_LOG_FILE_LIMIT=1024000  (default)"),
                                   HasSubstr("classes Demo.App;Demo.Net.error;")));
}

TEST_F(QmrkctlConfiguration, ShowSaysWhichFileIsMissing) {
  testsupport::removeAll(sandbox_.cfgPath("GE"));
  testsupport::removeAll(sandbox_.cfgPath("CA12"));
  const ChildResult result = qmrkctl({"show"});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.errors, HasSubstr("none can be generated"));
}

TEST_F(QmrkctlConfiguration, ShowTellsWhatDiffersFromAnotherCa) {
  sandbox_.writeCfg("CA13", "CA_NR=CA13\nLOG_STATE=FALSE\nEXTRA=1\n");
  sandbox_.writeInit("CA13", "Demo.App;\nDemo.Net.error;\n");
  const ChildResult result = qmrkctl({"show", "--diff", "CA13"});
  EXPECT_EQ(result.exitCode, 1) << result.errors;
  EXPECT_THAT(result.output, AllOf(HasSubstr("LOG_STATE\n  - TRUE\n  + FALSE\n"), HasSubstr("EXTRA\n  - \n  + 1\n"),
                                   Not(HasSubstr("classes"))));
  EXPECT_EQ(qmrkctl({"show", "--diff", "GE"}).exitCode, 0);
  EXPECT_EQ(qmrkctl({"show", "--diff", "CA99"}).exitCode, 3);
}

TEST_F(QmrkctlConfiguration, CheckTakesAFileByItself) {
  const std::string path = nativePath(sandbox_.cfgFolder() + "\\draft.cfg");
  testsupport::writeFile(path, "LOG_STAT=TRUE\n");
  const ChildResult result = qmrkctl({"check", path});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.output, HasSubstr("error Q301 " + path + ":1:1 nothing reads the key \"LOG_STAT\""));
  EXPECT_EQ(qmrkctl({"check", path + ".gone"}).exitCode, 3);
  EXPECT_EQ(qmrkctl({"check", "--all", path}).exitCode, 2);
}

TEST_F(QmrkctlConfiguration, ExplainKnowsEveryCodeAndNoOther) {
  EXPECT_THAT(qmrkctl({"explain", "q301"}).output, AllOf(HasSubstr("Q301 error: "), HasSubstr("  fix: ")));
  EXPECT_THAT(qmrkctl({"explain"}).output, AllOf(HasSubstr("\nQ501 error: "), HasSubstr("\nQ703 error: ")));
  EXPECT_EQ(qmrkctl({"explain", "Q999"}).exitCode, 3);
}

TEST_F(QmrkctlConfiguration, InitConfigInstallsFilesWithoutAFinding) {
  testsupport::removeAll(sandbox_.commonProgramFiles() + "\\Orvane Shared");
  testsupport::removeAll(sandbox_.commonAppData() + "\\Orvane");
  const ChildResult result = qmrkctl({"init-config", "--ca", "ca21", "--install"});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_THAT(result.output, HasSubstr("created " + nativePath(sandbox_.initFolder()) + "/qmrk_logging_CA21.init"));
  EXPECT_TRUE(exists(sandbox_.cfgPath("CA21")));
  const ChildResult check = qmrkctl({"check", "--all"});
  EXPECT_EQ(check.exitCode, 0) << check.output;
}

TEST_F(QmrkctlConfiguration, InitConfigNeverWritesOverAFile) {
  const std::string cfg = readFile(sandbox_.cfgPath("CA12"));
  const ChildResult result = qmrkctl({"init-config", "--ca", "CA12", "--install"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.errors, HasSubstr("exists; nothing was written"));
  EXPECT_EQ(readFile(sandbox_.cfgPath("CA12")), cfg);
  const ChildResult other = qmrkctl({"init-config", "--ca", "CA21", "--install"});
  EXPECT_EQ(other.exitCode, 0);
  EXPECT_THAT(other.output, HasSubstr("kept    "));
  EXPECT_THAT(readFile(sandbox_.cfgPath("GE")), HasSubstr("REDIRECT_CA_NR=CA12"));
}

TEST_F(QmrkctlConfiguration, InitConfigWritesIntoAFolderThatIsNamed) {
  const testsupport::TemporaryFolder folder;
  EXPECT_EQ(qmrkctl({"init-config", "--ca", "CA5", folder.path()}).exitCode, 0);
  EXPECT_EQ(testsupport::namesIn(folder.path()),
            (std::vector<std::string>{"qmrk_logging_CA5.cfg", "qmrk_logging_CA5.init", "qmrk_logging_GE.cfg"}));
  for (const std::string& name : testsupport::namesIn(folder.path()))
    EXPECT_EQ(qmrkctl({"check", folder.path() + "/" + name}).exitCode, 0) << name;
}

TEST_F(QmrkctlConfiguration, InitConfigTakesOnlyANameThatCanStandInAFileName) {
  for (const char* const ca : {"GE", "ge", "../CA1", "a b", "CA12\n"}) {
    const ChildResult result = qmrkctl({"init-config", "--ca", ca, "--install"});
    EXPECT_EQ(result.exitCode, 2) << ca;
  }
  EXPECT_EQ(qmrkctl({"init-config"}).exitCode, 2);
}

}  // namespace
