// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include "platform/native_path.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/tools/qmrkctl_run.h"

namespace {

using platform::nativePath;
using testing::HasSubstr;
using testsupport::ChildResult;

class QmrkctlErrors : public testsupport::QmrkctlRun {
 protected:
  std::string records() const { return logRoot() + "\\qmrk.info"; }
  void writeRecords(const std::string& _bytes) const {
    testsupport::makeFolders(logRoot());
    testsupport::writeFile(records(), _bytes);
  }
};

TEST_F(QmrkctlErrors, ListNothingWhenNothingWentWrong) {
  ASSERT_EQ(logTest({}).exitCode, 0);
  const ChildResult result = qmrkctl({"errors"});
  EXPECT_EQ(result.output, "no error records\n");
  EXPECT_EQ(result.exitCode, 0);
}

TEST_F(QmrkctlErrors, JoinThoseOfASetUpAndOfTheClassList) {
  // A CA without a file, and one without a class list, whose records go elsewhere.
  logTest({"--ca", "CA99"});
  sandbox_.writeCfg("CA7",
                    "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=x.log\nCOMMON_LOG_FILE_ROOT=Other\n"
                    "COMMON_LOG_FILE_FILTER=Demo;\n");
  testsupport::makeFolders(sandbox_.appData() + "\\Other");
  logTest({"--ca", "CA7"});
  const auto object = jsonOf({"errors", "--since", "1h"});
  const auto& found = object["result"]["records"];
  ASSERT_GE(found.size(), 2U) << object.dump(2);
  EXPECT_EQ(object["ok"], false);
  EXPECT_EQ(found[0]["kind"], "missing configuration");
  EXPECT_EQ(found[0]["ca"], "CA99");
  EXPECT_EQ(found[0]["caller"], "LogTest");
  EXPECT_EQ(found[0]["in"], nativePath(records()));
  EXPECT_EQ(found[1]["kind"], "unreadable class list");
  EXPECT_EQ(found[1]["ca"], "CA7");
  EXPECT_EQ(found[1]["file"], sandbox_.initPath("CA7"));
  EXPECT_EQ(found[1]["in"], nativePath(sandbox_.appData() + "\\Other\\qmrk.info"));
}

TEST_F(QmrkctlErrors, ExplainEachRecord) {
  writeRecords("2026/11/21 10:00:00 Faulty file permissions. /x.cfg does not have read permission. [Called by demo]\n");
  const ChildResult result = qmrkctl({"errors", "-v"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.output,
            "2026-11-21 10:00:00  unreadable configuration  caller demo\n"
            "  record: Faulty file permissions. /x.cfg does not have read permission. [Called by demo]\n"
            "  file: /x.cfg\n"
            "  meaning: The application was not allowed to read the file, and logged nothing. Give its user the right "
            "to read.\n"
            "  in: " +
                nativePath(records()) + ":1\n");
}

TEST_F(QmrkctlErrors, SinceATimeLeaveOutEarlierOnes) {
  writeRecords("2026/11/21 10:00:00 one [CA1] \n2026/11/21 10:00:01 two [CA1] \n");
  const auto object = jsonOf({"errors", "--since", "2026-11-21 10:00:01"});
  ASSERT_EQ(object["result"]["records"].size(), 1U);
  EXPECT_EQ(object["result"]["records"][0]["text"], "two [CA1] ");
  EXPECT_EQ(object["result"]["records"][0]["line"], 2);
}

TEST_F(QmrkctlErrors, EscapeLinesThatAreNoRecords) {
  writeRecords("\x1b[2Jjunk\n");
  const ChildResult result = qmrkctl({"errors"});
  EXPECT_THAT(result.output, HasSubstr("unknown"));
  EXPECT_THAT(result.output, HasSubstr("record: \\x1b[2Jjunk\n"));
}

TEST_F(QmrkctlErrors, KeepTheLatestOfVeryMany) {
  std::string text;
  for (int i = 0; i < 10'005; ++i)
    text += "2026/11/21 10:00:00 " + std::to_string(i) + "\n";
  writeRecords(text);
  const auto object = jsonOf({"errors"});
  EXPECT_EQ(object["result"]["left_out"], 5);
  EXPECT_EQ(object["result"]["records"][0]["text"], "5");
}

TEST_F(QmrkctlErrors, NameTheCommandThatMayReadThem) {
  writeRecords("2026/11/21 10:00:00 one [CA1] \n");
  testsupport::denyAccess(records());
  const testsupport::AsUnprivilegedUser unprivileged;
  const ChildResult result = qmrkctl({"errors"});
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_THAT(result.errors, HasSubstr(nativePath(records()) + " may not be read"));
}

TEST_F(QmrkctlErrors, RefuseAWrongTime) { EXPECT_EQ(qmrkctl({"errors", "--since", "x"}).exitCode, 2); }

}  // namespace
