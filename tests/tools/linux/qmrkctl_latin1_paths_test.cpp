// SPDX-License-Identifier: MIT
// A class list and logs in folders whose names are Latin-1 and so no UTF-8. A real application uses them.
#include <gmock/gmock.h>

#include <chrono>
#include <thread>

#include "platform/native_path.h"
#include "tests/support/companion_process.h"
#include "tests/support/private_events.h"
#include "tests/tools/qmrkctl_run.h"

namespace {

using testing::HasSubstr;
using testsupport::ChildResult;

class QmrkctlLatin1Paths : public testsupport::QmrkctlRun {
 protected:
  static void SetUpTestSuite() {
    testsupport::usePrivateProcesses();
    testsupport::usePrivateEvents();
  }

  QmrkctlLatin1Paths() : lists_(sandbox_.commonAppData() + "\\caf\xE9"), data_(sandbox_.appData() + "\\caf\xE9") {
    testsupport::makeFolders(lists_ + "\\Orvane\\qmrk\\logging");
    testsupport::makeFolders(data_);
    testsupport::setEnvironment("QMRK_COMMON_APPDATA", platform::nativePath(lists_));
    testsupport::setEnvironment("QMRK_APPDATA", platform::nativePath(data_));
    writeList("Demo.App;\nDemo.Nobody;\n");
  }

  void writeList(const std::string& _text) const {
    testsupport::writeFile(lists_ + "\\Orvane\\qmrk\\logging\\qmrk_logging_CA12.init", _text);
  }

  // An application with a log of its own, once it waits for a changed list.
  static testsupport::CompanionProcess application() {
    testsupport::CompanionProcess process(
        {QMRK_LOGTEST, "--app", "own", "--classes", "Demo.App.info;", "--listen", "600"});
    EXPECT_THAT(process.readLine(), HasSubstr("Demo.App.info is on"));
    while (jsonOf({"apps"})["result"]["apps"][0]["listens"] != "yes")
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return process;
  }

  std::string lists_;
  std::string data_;
};

TEST_F(QmrkctlLatin1Paths, LeadToTheListThatIsApplied) {
  const testsupport::CompanionProcess process = application();
  EXPECT_EQ(jsonOf({"apps"})["result"]["apps"][0]["applied"], "yes");
  EXPECT_THAT(qmrkctl({"apps"}).output, HasSubstr("/caf\\xe9/"));
  writeList("Demo.Net;\n");
  EXPECT_EQ(jsonOf({"apps"})["result"]["apps"][0]["applied"], "no");
}

TEST_F(QmrkctlLatin1Paths, LeadToTheLogsOfWhoFollowsTheList) {
  EXPECT_THAT(qmrkctl({"check"}).output, testing::Not(HasSubstr("Q406")));
  const testsupport::CompanionProcess process = application();
  ASSERT_EQ(qmrkctl({"signal", "--wait", "60s"}).exitCode, 0) << "the page of a set-up has no logs yet";
  EXPECT_THAT(qmrkctl({"check"}).output, HasSubstr("no running application has the class \"Demo.Nobody\""));
}

TEST_F(QmrkctlLatin1Paths, LeadToEveryLogForAMark) {
  const testsupport::CompanionProcess process = application();
  const ChildResult result = qmrkctl({"mark", "pump on"});
  EXPECT_EQ(result.exitCode, 0) << result.output;
  for (const char* const log : {"common.log", "Application logs\\own_log.txt"})
    EXPECT_THAT(testsupport::readFile(data_ + "\\Logs\\Common\\" + log), HasSubstr(" pump on\n")) << log;
}

TEST_F(QmrkctlLatin1Paths, LeadToTheLogOfAnApplicationWithAnotherName) {
  const testsupport::CompanionProcess process = application();
  ASSERT_EQ(qmrkctl({"mark", "pump on"}).exitCode, 0);
  EXPECT_THAT(qmrkctl({"--app", "LogTest", "tail", "-n", "1000"}).output, HasSubstr("pump on"));
}

}  // namespace
