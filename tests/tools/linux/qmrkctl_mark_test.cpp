// SPDX-License-Identifier: MIT
// A line of the engineer's own in every log.
#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/linux/forked_child.h"
#include "tests/tools/linux/qmrkctl_on_sandbox.h"

namespace {

using testsupport::ChildResult;
using testsupport::SleepingListener;
using testsupport::stranger;

class QmrkctlMark : public testsupport::QmrkctlOnSandbox {
 protected:
  std::string commonFolder() const { return sandbox_.appData() + "\\Logs\\Common"; }
};

TEST_F(QmrkctlMark, MarksEveryLogAndCreatesNone) {
  const std::string common = commonFolder() + "\\common.log";
  EXPECT_EQ(qmrkctl({"mark", "nothing there"}).exitCode, 3);
  EXPECT_FALSE(testsupport::exists(common));
  testsupport::makeFolders(commonFolder());
  testsupport::writeFile(common, "[Demo.App] before\n");
  auto settings = follower("Valve", stranger);
  settings.commonLog = sandbox_.appData() + "\\valve.log";
  testsupport::writeFile(settings.commonLog, "");
  ASSERT_EQ(::chown(testsupport::replaced(settings.commonLog, "\\", "/").c_str(), stranger, stranger), 0);
  const SleepingListener valve(settings);
  EXPECT_EQ(qmrkctl({"mark", "pump\non"}).exitCode, 0);
  const std::string line = testsupport::readFile(settings.commonLog);
  EXPECT_TRUE(line.starts_with("[qmrkctl.mark] 20")) << line;
  EXPECT_TRUE(line.ends_with(" pump\\non\n")) << line;
  EXPECT_EQ(testsupport::readFile(common), "[Demo.App] before\n" + line);
}

TEST_F(QmrkctlMark, MarksNoFileThatAUserPutsInPlaceOfHisLog) {
  const std::string victim = sandbox_.appData() + "\\victim";
  testsupport::writeFile(victim, "untouched");
  auto settings = follower("Valve", stranger);
  settings.commonLog = victim;
  const SleepingListener valve(settings);
  EXPECT_EQ(qmrkctl({"mark", "x"}).exitCode, 4);
  EXPECT_EQ(testsupport::readFile(victim), "untouched");
}

TEST_F(QmrkctlMark, BeginsALineOfItsOwnBehindOneThatWasLeftUnfinished) {
  testsupport::makeFolders(commonFolder());
  testsupport::writeFile(commonFolder() + "\\common.log", "[Demo.App] kil");
  EXPECT_EQ(qmrkctl({"mark", "x"}).exitCode, 0);
  const std::string text = testsupport::readFile(commonFolder() + "\\common.log");
  EXPECT_TRUE(text.starts_with("[Demo.App] kil\n[qmrkctl.mark] 20")) << text;
  EXPECT_TRUE(text.ends_with(" x\n")) << text;
}

TEST_F(QmrkctlMark, IsAppendedByOneWhoMayWriteTheLogButNotReadIt) {
  const std::string log = commonFolder() + "\\common.log";
  testsupport::makeFolders(commonFolder());
  testsupport::writeFile(log, "");
  const std::string path = testsupport::replaced(log, "\\", "/");
  ASSERT_EQ(::chown(path.c_str(), stranger, stranger), 0);
  ASSERT_EQ(::chmod(path.c_str(), 0200), 0);
  EXPECT_EQ(testsupport::inForkedChild([] {
              if (::setresuid(stranger, stranger, stranger) != 0) return 100;
              return qmrkctl({"mark", "x"}).exitCode;
            }),
            0);
  EXPECT_TRUE(testsupport::readFile(log).ends_with(" x\n"));
}

TEST_F(QmrkctlMark, ReachesTheLogOfAnApplicationThatHasEnded) {
  const std::string folder = commonFolder() + "\\Application logs";
  testsupport::makeFolders(folder);
  testsupport::writeFile(folder + "\\Pump_log.txt", "");
  testsupport::writeFile(folder + "\\Valve_log.txt", "");
  testsupport::writeFile(commonFolder() + "\\common.log", "");
  const ChildResult result = qmrkctl({"--app", "Pump", "mark", "x"});
  EXPECT_EQ(result.exitCode, 0) << result.output << result.errors;
  EXPECT_TRUE(testsupport::readFile(folder + "\\Pump_log.txt").ends_with(" x\n"));
  EXPECT_EQ(testsupport::readFile(folder + "\\Valve_log.txt"), "");
  EXPECT_EQ(testsupport::readFile(commonFolder() + "\\common.log"), "");
  const ChildResult none = qmrkctl({"--app", "Nobody", "mark", "x"});
  EXPECT_EQ(none.exitCode, 3);
  EXPECT_EQ(none.errors, "qmrkctl: no running application is called \"Nobody\"\n");
}

}  // namespace
