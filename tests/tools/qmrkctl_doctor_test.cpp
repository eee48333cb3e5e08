// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <ctime>

#include "platform/native_path.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/private_events.h"
#include "tests/tools/qmrkctl_run.h"

namespace {

using platform::nativePath;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using testsupport::ChildResult;

// For a CA that no application of another test uses.
class QmrkctlDoctor : public testsupport::QmrkctlRun {
 protected:
  static void SetUpTestSuite() {
    testsupport::usePrivateProcesses();
    testsupport::usePrivateEvents();
  }

  QmrkctlDoctor() {
    sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA661\n");
    sandbox_.writeCfg("CA661",
                      "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_ROOT=Logs\\Common\n"
                      "COMMON_LOG_FILE_FILTER=Demo.App;Demo.Net;\n");
    sandbox_.writeInit("CA661", "Demo.App;\nDemo.Net.error;\n");
    writeCommonLog("");
  }

  void writeRecord(const std::string& _stamp) const {
    testsupport::writeFile(logRoot() + "\\qmrk.info", _stamp + " Failed to open file /x.init [CA661] \n");
  }

  static std::string now() {
    const std::time_t time = std::time(nullptr);
    char text[32];
    std::strftime(text, sizeof text, "%Y/%m/%d %H:%M:%S", std::localtime(&time));
    return text;
  }

  static ChildResult doctor(std::vector<std::string> _arguments = {}) {
    _arguments.insert(_arguments.begin(), {"--ca", "CA661", "doctor"});
    return qmrkctl(_arguments);
  }
};

TEST_F(QmrkctlDoctor, CallsACleanInstallationHealthy) {
  const ChildResult result = doctor();
  EXPECT_THAT(result.output, StartsWith("healthy"));
  EXPECT_THAT(result.output, Not(HasSubstr("error Q")));
  EXPECT_EQ(result.exitCode, 0);
}

TEST_F(QmrkctlDoctor, CountsTheProblemsOfTheConfigurationInTheFirstLine) {
  sandbox_.writeCfg("CA661",
                    "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_ROOT=Logs\\Common\n"
                    "COMMON_LOG_FILE_FILTER=Demo.App;Demo.Net\n");
  const ChildResult result = doctor();
  EXPECT_THAT(result.output, StartsWith("1 problem"));
  EXPECT_THAT(result.output, HasSubstr("error Q401 " + nativePath(sandbox_.cfgPath("CA661")) + ":4:"));
  EXPECT_THAT(result.output, HasSubstr("\n  effect: "));
  EXPECT_THAT(result.output, HasSubstr("\n  fix: "));
  EXPECT_EQ(result.exitCode, 1);
}

TEST_F(QmrkctlDoctor, LooksAtEveryCaThatIsThere) {
  sandbox_.writeCfg("CA7", "\xEF\xBB\xBFLOG_STATE=TRUE\n");
  EXPECT_THAT(qmrkctl({"doctor"}).output, HasSubstr("error Q101 " + nativePath(sandbox_.cfgPath("CA7"))));
}

TEST_F(QmrkctlDoctor, WarnsOfRecentErrorRecordsAndNotOfOldOnes) {
  writeRecord("2007/01/05 09:03:07");
  EXPECT_THAT(doctor().output, Not(HasSubstr("Q614")));
  writeRecord(now());
  const ChildResult result = doctor();
  EXPECT_THAT(result.output, StartsWith("healthy (1 warning"));
  EXPECT_THAT(result.output, HasSubstr("warning Q614 " + nativePath(logRoot() + "\\qmrk.info")));
  EXPECT_EQ(result.exitCode, 0);
}

TEST_F(QmrkctlDoctor, CountsWarningsWhenItIsStrict) {
  writeRecord(now());
  const ChildResult result = doctor({"--strict"});
  EXPECT_THAT(result.output, StartsWith("1 problem"));
  EXPECT_EQ(result.exitCode, 1);
}

TEST_F(QmrkctlDoctor, TellsTheSameAsJson) {
  sandbox_.writeInit("CA661", "Demo.App; Demo.Net;\n");
  const auto object = jsonOf({"--ca", "CA661", "doctor"});
  EXPECT_EQ(object["schema"], "qmrkctl.doctor/1");
  EXPECT_EQ(object["ok"], false);
  EXPECT_EQ(object["result"]["healthy"], false);
  EXPECT_GE(object["result"]["problems"], 1);
  EXPECT_EQ(object["findings"][0]["code"], "Q402") << object.dump(2);
  EXPECT_EQ(object["findings"][0]["line"], 1);
}

TEST_F(QmrkctlDoctor, SaysWhatItCannotFind) {
  EXPECT_EQ(qmrkctl({"--app", "no application of this name", "doctor"}).exitCode, 3);
  EXPECT_EQ(qmrkctl({"--user", "nobody-of-this-name", "doctor"}).exitCode, 3);
}

TEST_F(QmrkctlDoctor, FindsMissingRightsOfAnotherUser) {
  testsupport::denyWriting(commonLog());
  testsupport::denyWriting(logRoot());
  const testsupport::AsUnprivilegedUser unprivileged;
  const ChildResult result = doctor();
  EXPECT_THAT(result.output, HasSubstr("Q502")) << result.errors;
  EXPECT_EQ(result.exitCode, 1);
}

}  // namespace
