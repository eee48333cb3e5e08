// SPDX-License-Identifier: MIT
#include <signal.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>

#include "tests/support/companion_process.h"
#include "tests/support/linux/forked_child.h"
#include "tests/tools/linux/qmrkctl_on_sandbox.h"
#include "tools/system/file_lock.h"

namespace {

using testsupport::ChildResult;
using testsupport::Json;
using testsupport::Names;
using testsupport::other;
using testsupport::SleepingListener;
using testsupport::stranger;

using QmrkctlClasses = testsupport::QmrkctlOnSandbox;

TEST_F(QmrkctlClasses, RefusesAListWithAnErrorUnlessForced) {
  const std::string before = list();
  const ChildResult refused = qmrkctl({"classes", "set",
                                       "\xEF\xBB\xBF"
                                       "Demo.App;"});
  EXPECT_EQ(refused.exitCode, 1) << refused.output << refused.errors;
  EXPECT_EQ(list(), before);
  EXPECT_EQ(qmrkctl({"classes", "set",
                     "\xEF\xBB\xBF"
                     "Demo.App;",
                     "--force"})
                .exitCode,
            0);
  EXPECT_EQ(list(),
            "\xEF\xBB\xBF"
            "Demo.App;");
}

TEST_F(QmrkctlClasses, WritesNothingOnADryRun) {
  const std::string before = list();
  const ChildResult result = qmrkctl({"classes", "only", "Demo.Net", "--dry-run"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(contains(result.output, "would change: +Demo.Net -Demo.App -Demo.Net.error")) << result.output;
  EXPECT_EQ(list(), before);
  EXPECT_FALSE(testsupport::exists(beside("history")));
}

TEST_F(QmrkctlClasses, ClearsTheListToALineEnd) {
  EXPECT_EQ(qmrkctl({"classes", "clear"}).exitCode, 0);
  EXPECT_EQ(list(), "\n");
}

TEST_F(QmrkctlClasses, KeepsOwnerModeAndLink) {
  const std::string path = testsupport::replaced(sandbox_.initPath("CA12"), "\\", "/");
  const std::string target = path + ".real";
  ASSERT_EQ(::rename(path.c_str(), target.c_str()), 0);
  ASSERT_EQ(::symlink(target.c_str(), path.c_str()), 0);
  ASSERT_EQ(::chown(target.c_str(), stranger, other), 0);
  ASSERT_EQ(::chmod(target.c_str(), 0664), 0);
  EXPECT_EQ(qmrkctl({"classes", "enable", "Demo.Net"}).exitCode, 0);
  struct stat status {};
  ASSERT_EQ(::lstat(path.c_str(), &status), 0);
  EXPECT_TRUE(S_ISLNK(status.st_mode));
  ASSERT_EQ(::stat(target.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, stranger);
  EXPECT_EQ(status.st_gid, other);
  EXPECT_EQ(status.st_mode & 07777U, 0664U);
  EXPECT_EQ(testsupport::readFile(target), "Demo.App;\nDemo.Net.error;\nDemo.Net;\n");
}

TEST_F(QmrkctlClasses, EndsALeaseAfterItsTimeAndAfterARestart) {
  const SleepingListener pump(follower("Pump"));
  EXPECT_EQ(qmrkctl({"classes", "enable", "Demo.App", "Demo.Net", "--for", "1h", "--wait", "60s"}).exitCode, 0);
  EXPECT_TRUE(contains(qmrkctl({"leases", "list"}).output, "Demo.Net"));
  EXPECT_EQ(list(), "Demo.App;\nDemo.Net.error;\nDemo.Net;\n");
  // Somebody adds a class meanwhile; then the machine is started again, later.
  list(list() + "Demo.Extra;\n");
  Json leases = Json::parse(testsupport::readFile(beside("lease")));
  ASSERT_EQ(leases["leases"].size(), 1U);
  leases["leases"][0]["bootId"] = "another start";
  leases["leases"][0]["since"] = 1000;
  leases["leases"][0]["until"] = 2000;
  testsupport::writeFile(beside("lease"), leases.dump());
  // Any command sweeps in passing.
  EXPECT_EQ(qmrkctl({"history"}).exitCode, 0);
  EXPECT_EQ(list(), "Demo.App;\nDemo.Net.error;\nDemo.Extra;\n");
  EXPECT_TRUE(Json::parse(testsupport::readFile(beside("lease")))["leases"].empty());
  // It waits for no answer.
  const auto hasApplied = [&] {
    const Json apps = json({"--pid", std::to_string(pump.pid()), "apps"});
    return apps["result"]["apps"][0]["applied"] == "yes";
  };
  while (!hasApplied())
    std::this_thread::yield();
}

TEST_F(QmrkctlClasses, LeavesAClassOnThatSomebodyEnablesForGood) {
  EXPECT_EQ(qmrkctl({"classes", "enable", "Demo.Net", "--for", "1h"}).exitCode, 0);
  EXPECT_EQ(qmrkctl({"classes", "enable", "Demo.Net"}).exitCode, 0);
  EXPECT_TRUE(Json::parse(testsupport::readFile(beside("lease")))["leases"].empty());
}

TEST_F(QmrkctlClasses, KeepsTheLeaseOfATrialThatIsKilled) {
  testsupport::CompanionProcess trial({QMRKCTL, "classes", "try", "Demo.Net", "--for", "1h"});
  while (!contains(trial.readLine(), "+Demo.Net")) {
  }
  // The difference is shown before the list is written.
  while (!contains(list(), "Demo.Net;\n"))
    std::this_thread::yield();
  trial.kill();
  EXPECT_TRUE(contains(list(), "Demo.Net;\n"));
  Json leases = Json::parse(testsupport::readFile(beside("lease")));
  ASSERT_EQ(leases["leases"].size(), 1U);
  EXPECT_GT(leases["leases"][0]["until"].get<std::int64_t>(),
            leases["leases"][0]["since"].get<std::int64_t>() + 3'600'000);
  leases["leases"][0]["untilUptime"] = 1;
  testsupport::writeFile(beside("lease"), leases.dump());
  EXPECT_EQ(qmrkctl({"leases", "sweep"}).exitCode, 0);
  EXPECT_EQ(list(), "Demo.App;\nDemo.Net.error;\n");
}

TEST_F(QmrkctlClasses, MeasuresATrialAndSwitchesBack) {
  const ChildResult result = qmrkctl({"classes", "try", "Demo.Net", "--for", "300ms"});
  EXPECT_EQ(result.exitCode, 0) << result.output << result.errors;
  EXPECT_TRUE(contains(result.output, "lines/s")) << result.output;
  EXPECT_TRUE(contains(result.output, "goes off again after 300ms of measuring\n")) << result.output;
  EXPECT_EQ(list(), "Demo.App;\nDemo.Net.error;\n");
}

TEST_F(QmrkctlClasses, SwitchesBackWhenATrialIsInterrupted) {
  for (const int signal : {SIGINT, SIGTERM}) {
    const pid_t trial = ::fork();
    if (trial == 0) {
      ::execl(QMRKCTL, QMRKCTL, "-q", "classes", "try", "Demo.Net", "--for", "1h", nullptr);
      ::_exit(99);
    }
    while (!contains(list(), "Demo.Net;\n"))
      std::this_thread::yield();
    ::kill(trial, signal);
    EXPECT_EQ(testsupport::exitCodeOf(trial), 130);
    EXPECT_EQ(list(), "Demo.App;\nDemo.Net.error;\n");
  }
}

// Where the event cannot be set, the list was written all the same.
TEST_F(QmrkctlClasses, SwitchesBackAfterATrialOfWhichNobodyCouldBeTold) {
  const SleepingListener own(follower("Pump", other));
  const std::string folder = testsupport::replaced(sandbox_.initFolder(), "\\", "/");
  ASSERT_EQ(::chown(folder.c_str(), other, ::getegid()), 0);
  ASSERT_EQ(::chown((folder + "/qmrk_logging_CA12.init").c_str(), other, ::getegid()), 0);
  // No event can be opened there any more.
  const std::string event = "/dev/shm/qmrk-" + std::to_string(other) + "/QMRK_LOG_EVENT";
  ASSERT_EQ(::unlink(event.c_str()), 0);
  ASSERT_EQ(::mkdir(event.c_str(), 0700), 0);
  EXPECT_EQ(testsupport::inForkedChild([&] {
              if (::setresuid(other, other, other) != 0) return 1;
              const ChildResult result = qmrkctl({"classes", "try", "Demo.Net", "--for", "100ms"});
              if (!contains(result.output, "Pump " + std::to_string(other) + " denied")) return 2;
              return result.exitCode;
            }),
            4);
  EXPECT_EQ(list(), "Demo.App;\nDemo.Net.error;\n");
}

TEST_F(QmrkctlClasses, SaysThatSomebodyElseChangesTheList) {
  const toolsystem::FileLock lock(beside("lock"), std::chrono::milliseconds(0));
  ASSERT_TRUE(lock.isHeld());
  const ChildResult result = qmrkctl({"classes", "enable", "Demo.Net"});
  EXPECT_EQ(result.exitCode, 6) << result.output;
  EXPECT_TRUE(contains(result.errors, "somebody else is changing the class list")) << result.errors;
  EXPECT_EQ(list(), "Demo.App;\nDemo.Net.error;\n");
}

// A process with a file system of its own, in which the class list is a link that begins with "/".
TEST_F(QmrkctlClasses, ChangesTheListThatAProcessSeesInItsOwnMounts) {
  const std::string folder = testsupport::replaced(sandbox_.initFolder(), "\\", "/");
  const std::string link = folder + "/qmrk_logging_CA12.init";
  testsupport::CompanionProcess apart({"/usr/bin/unshare", "--mount", "/bin/sh", "-c",
                                       "mount -t tmpfs qmrk-test '" + folder + "' && mkdir '" + folder +
                                           "/real' && echo 'Demo.App;' > '" + folder + "/real/list' && ln -s '" +
                                           folder + "/real/list' '" + link + "' && echo $$ && exec sleep 1000"});
  const std::string pid = apart.readLine();
  EXPECT_FALSE(contains(qmrkctl({"--pid", pid, "check"}).output, "Q213")) << "the link leads to a file";
  const ChildResult result = qmrkctl({"--pid", pid, "classes", "enable", "Demo.Net"});
  EXPECT_EQ(result.exitCode, 0) << result.output << result.errors;
  EXPECT_EQ(testsupport::readFile("/proc/" + pid + "/root" + folder + "/real/list"), "Demo.App;\nDemo.Net;\n");
  EXPECT_EQ(list(), "Demo.App;\nDemo.Net.error;\n") << "that of all others";
  apart.kill();
}

TEST_F(QmrkctlClasses, RecordsEveryChange) {
  const SleepingListener pump(follower("Pump"));
  EXPECT_EQ(qmrkctl({"classes", "enable", "Demo.Net", "--reason", "slow\nstart", "--wait", "60s"}).exitCode, 0);
  testsupport::writeFile(beside("history"), testsupport::readFile(beside("history")) + "{\"torn");
  EXPECT_EQ(qmrkctl({"classes", "disable", "Demo.Net", "--wait", "60s"}).exitCode, 0);
  const Json result = json({"history"})["result"];
  ASSERT_EQ(result["records"].size(), 2U);
  EXPECT_EQ(result["unreadableLines"], 1);
  EXPECT_EQ(result["records"][0]["reason"], "slow\nstart");
  EXPECT_EQ(result["records"][0]["answers"][0]["outcome"], "applied");
  EXPECT_EQ(result["records"][0]["after"], "Demo.App;\nDemo.Net.error;\nDemo.Net;\n");
  EXPECT_TRUE(contains(qmrkctl({"history"}).output, "slow\\nstart"));
  EXPECT_FALSE(contains(qmrkctl({"history", "-n", "0"}).output, "no change is recorded"));
}

// A tool waits five seconds for the others, each of which brings its files to the disk; on a busy one that takes
// longer.
TEST_F(QmrkctlClasses, SerialisesChangesOfSeveralTools) {
  constexpr int somebodyElseChanges = 6;
  const auto enabling = [](int _class) {
    return testsupport::CompanionProcess(
        {QMRKCTL, "classes", "enable", "Demo.N" + std::to_string(_class), "--no-signal"});
  };
  std::vector<testsupport::CompanionProcess> tools;
  for (int i = 0; i < 8; ++i)
    tools.push_back(enabling(i));
  for (int i = 0; i < 8; ++i) {
    int result = tools[static_cast<std::size_t>(i)].finish();
    while (result == somebodyElseChanges)
      result = enabling(i).finish();
    EXPECT_EQ(result, 0);
  }
  for (int i = 0; i < 8; ++i) {
    EXPECT_TRUE(contains(list(), "Demo.N" + std::to_string(i) + ";")) << list();
  }
}

TEST_F(QmrkctlClasses, LeavesTheListAsItIsOnAFullDisk) {
  const std::string folder = testsupport::replaced(sandbox_.initFolder(), "\\", "/");
  ASSERT_EQ(::mount("qmrk-test", folder.c_str(), "tmpfs", 0, "size=8k"), 0);
  list("Demo.App;\n");
  testsupport::writeFile(sandbox_.initFolder() + "\\filler", std::string(4000, 'x'));
  const ChildResult result = qmrkctl({"classes", "set", std::string(6000, 'a') + ";", "--force"});
  EXPECT_EQ(result.exitCode, 70) << result.output;
  EXPECT_EQ(list(), "Demo.App;\n");
  EXPECT_EQ(testsupport::namesIn(sandbox_.initFolder()), (Names{"CA12.lock", "filler", "qmrk_logging_CA12.init"}));
  EXPECT_EQ(::umount2(folder.c_str(), MNT_DETACH), 0);
}

TEST_F(QmrkctlClasses, RefusesTheGenericCaWithoutARedirection) {
  sandbox_.writeCfg("GE", "LOG_STATE=TRUE\n");
  const ChildResult result = qmrkctl({"classes", "enable", "Demo.Net"});
  EXPECT_EQ(result.exitCode, 3) << result.output;
  EXPECT_EQ(testsupport::readFile(sandbox_.cfgPath("GE")), "LOG_STATE=TRUE\n");
}

TEST_F(QmrkctlClasses, UnitesListFilterProcessesAndLog) {
  const SleepingListener pump(follower("Pump"));
  testsupport::makeFolders(sandbox_.appData() + "\\Logs\\Common");
  testsupport::writeFile(sandbox_.appData() + "\\Logs\\Common\\common.log", "[Demo.Old] 2026 x\n[Demo.Old] 2026 y\n");
  const Json object = json({"classes", "list"});
  Json old;
  Json net;
  for (const Json& row : object["result"]["overview"]) {
    if (row["class"] == "Demo.Old") old = row;
    if (row["class"] == "Demo.Net.error") net = row;
  }
  EXPECT_EQ(old["logged"], 2) << object;
  EXPECT_EQ(net["listed"], true);
  EXPECT_EQ(net["filtered"], true);
  EXPECT_EQ(net["on"], 1);
}

}  // namespace
