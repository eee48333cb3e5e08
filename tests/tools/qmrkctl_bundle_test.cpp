// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include "platform/native_path.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/private_events.h"
#include "tests/tools/qmrkctl_run.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testsupport::ChildResult;

class QmrkctlBundle : public testsupport::QmrkctlRun {
 protected:
  static void SetUpTestSuite() {
    testsupport::usePrivateProcesses();
    testsupport::usePrivateEvents();
  }
  QmrkctlBundle() { writeCommonLog("[Demo.App.info] 20261121 10:00:00 x\n"); }

  std::string file() const { return folder_.path() + "/bundle.tar.gz"; }

  testsupport::TemporaryFolder folder_;
};

TEST_F(QmrkctlBundle, SaysWhatIsInsideAndWritesIt) {
  testsupport::writeFile(applicationLog("pump"), "[A] 20261121 10:00:00 y\n");
  const ChildResult result = qmrkctl({"bundle", "--out", file()});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  for (const char* const part : {"contents.txt", "doctor.json", "show.txt", "errors.txt", "environment.txt",
                                 "common_log.txt", "application_log_pump.txt"})
    EXPECT_THAT(result.output, HasSubstr(std::string("  ") + part));
  EXPECT_EQ(testsupport::readFile(file()).substr(0, 2), "\x1f\x8b");
  EXPECT_THAT(testsupport::readFile(commonLog()), HasSubstr("[qmrkctl.mark] 20"));
  EXPECT_THAT(testsupport::readFile(commonLog()), HasSubstr(" bundle "));
  EXPECT_EQ(testsupport::namesIn(folder_.path()), std::vector<std::string>{"bundle.tar.gz"});
}

TEST_F(QmrkctlBundle, ReplacesNoFile) {
  testsupport::writeFile(file(), "mine");
  const ChildResult result = qmrkctl({"bundle", "--out", file()});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.errors, HasSubstr("is there already"));
  EXPECT_EQ(testsupport::readFile(file()), "mine");
  EXPECT_THAT(testsupport::readFile(commonLog()), Not(HasSubstr(" bundle "))) << "a mark of what is not there";
}

TEST_F(QmrkctlBundle, SaysThatItsFolderIsMissing) {
  const ChildResult result = qmrkctl({"bundle", "--out", folder_.path() + "/missing/bundle.tar.gz"});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.errors, HasSubstr("cannot be written"));
  EXPECT_THAT(testsupport::readFile(commonLog()), Not(HasSubstr(" bundle ")));
}

}  // namespace
