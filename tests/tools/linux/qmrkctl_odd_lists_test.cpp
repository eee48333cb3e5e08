// SPDX-License-Identifier: MIT
// Class lists, leases and processes that are missing, damaged, hidden or of another name than was meant.
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "tests/support/companion_process.h"
#include "tests/support/linux/forked_child.h"
#include "tests/tools/linux/qmrkctl_on_sandbox.h"

namespace {

using testsupport::ChildResult;
using testsupport::Json;
using testsupport::Names;
using testsupport::other;
using testsupport::SleepingListener;

class QmrkctlOddLists : public testsupport::QmrkctlOnSandbox {
 protected:
  std::string folder() const { return testsupport::replaced(sandbox_.initFolder(), "\\", "/"); }

  void writeLog(const std::string& _lines) const {
    testsupport::makeFolders(sandbox_.appData() + "\\Logs\\Common");
    testsupport::writeFile(sandbox_.appData() + "\\Logs\\Common\\common.log", _lines);
  }

  static Json rowOf(const std::string& _class) {
    const Json object = json({"classes", "list"});
    for (const Json& row : object["result"]["overview"]) {
      if (row["class"] == _class) return row;
    }
    return {};
  }
};

TEST_F(QmrkctlOddLists, AreCreatedByAChange) {
  testsupport::removeAll(sandbox_.initPath("CA12"));
  const ChildResult result = qmrkctl({"classes", "enable", "Demo.Net"});
  EXPECT_EQ(result.exitCode, 0) << result.output << result.errors;
  EXPECT_EQ(list(), "Demo.Net;\n");
  EXPECT_TRUE(contains(result.errors, "every class was on; now only those of the list are")) << result.errors;
}

// A list of nothing would switch everything off.
TEST_F(QmrkctlOddLists, AreNotCreatedToTakeAClassOff) {
  testsupport::removeAll(sandbox_.initPath("CA12"));
  for (const Names& arguments : {Names{"disable", "Demo.Net"}, Names{"try", "Demo.Net", "--for", "10ms"}}) {
    Names all = {"classes"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    const ChildResult result = qmrkctl(all);
    EXPECT_EQ(result.exitCode, 3) << result.output;
    EXPECT_TRUE(contains(result.errors, ", so every class is on")) << result.errors;
    EXPECT_FALSE(testsupport::exists(sandbox_.initPath("CA12")));
  }
}

TEST_F(QmrkctlOddLists, AreNotChangedForACaThatIsNotInstalled) {
  const std::string before = list();
  for (const std::string ca : {"CA99", "../x", "a\nb"}) {
    const ChildResult result = qmrkctl({"--ca", ca, "classes", "enable", "Demo.Net"});
    EXPECT_EQ(result.exitCode, 3) << result.output;
    EXPECT_TRUE(contains(result.errors, "use the class list of CA12")) << result.errors;
  }
  EXPECT_EQ(list(), before);
  EXPECT_EQ(qmrkctl({"--ca", "ge", "classes", "enable", "Demo.Net"}).exitCode, 0);
}

TEST_F(QmrkctlOddLists, AreToldFromThoseThatCannotBeRead) {
  EXPECT_EQ(qmrkctl({"classes", "list"}).errors, "");
  testsupport::removeAll(sandbox_.initPath("CA12"));
  const ChildResult missing = qmrkctl({"classes", "list"});
  EXPECT_EQ(missing.exitCode, 0);
  EXPECT_TRUE(contains(missing.errors, "there is no class list /")) << missing.errors;
  std::filesystem::create_directory(folder() + "/qmrk_logging_CA12.init");
  const ChildResult unread = qmrkctl({"classes", "list"});
  EXPECT_EQ(unread.exitCode, 5);
  EXPECT_TRUE(contains(unread.errors, "the class list cannot be read: /")) << unread.errors;
}

// A page has the logs of the moment at which it was written.
TEST_F(QmrkctlOddLists, SayWhetherALogIsOnThatWasCreatedLater) {
  const SleepingListener pump(follower("Pump"));
  writeLog("[Demo.App.late] 2026 x\n[Other.late] 2026 y\n");
  EXPECT_EQ(rowOf("Demo.App.late")["on"], 1);
  EXPECT_EQ(rowOf("Demo.App.late")["off"], 0);
  EXPECT_EQ(rowOf("Other.late")["off"], 1);
}

TEST_F(QmrkctlOddLists, StayFollowedWhileTheyAreMissing) {
  const SleepingListener pump(follower("Pump"));
  testsupport::removeAll(sandbox_.initPath("CA12"));
  EXPECT_EQ(json({"classes", "list"})["result"]["processes"], 1);
}

TEST_F(QmrkctlOddLists, MayHaveLeasesThatCannotBeRead) {
  EXPECT_EQ(qmrkctl({"classes", "enable", "Demo.Net", "--for", "1h"}).exitCode, 0);
  EXPECT_EQ(qmrkctl({"leases"}).exitCode, 0);
  const std::string sound = testsupport::readFile(beside("lease"));
  for (const std::string& damaged :
       {std::string("{"), std::string("[]"), testsupport::replaced(sound, "\"Demo.Net\"", "5")}) {
    testsupport::writeFile(beside("lease"), damaged);
    const ChildResult result = qmrkctl({"leases"});
    EXPECT_EQ(result.exitCode, 5) << damaged << result.output;
    EXPECT_TRUE(contains(result.errors, "CA12.lease")) << result.errors;
  }
}

TEST_F(QmrkctlOddLists, HaveClassesThatALeaseDoesNotSwitchOff) {
  const ChildResult on = qmrkctl({"classes", "enable", "Demo.App", "--for", "5m"});
  EXPECT_TRUE(contains(on.output, "nothing goes off again: it was on before\n")) << on.output;
  EXPECT_FALSE(json({"classes", "enable", "Demo.App", "--for", "5m"})["result"].contains("until"));
  EXPECT_FALSE(testsupport::exists(beside("lease")));
  const ChildResult both = qmrkctl({"classes", "enable", "Demo.App", "Demo.Net", "--for", "2h"});
  EXPECT_TRUE(contains(both.output, "what it switches on goes off again after 2h, at ")) << both.output;
  EXPECT_FALSE(contains(both.output, "but ")) << both.output;
  const std::string until = Json::parse(testsupport::readFile(beside("lease")))["leases"][0]["untilText"];
  const ChildResult shorter = qmrkctl({"classes", "enable", "Demo.Net", "--for", "1h"});
  EXPECT_TRUE(contains(shorter.output, "but Demo.Net at " + until + ": a former lease lasts longer\n"))
      << shorter.output;
}

TEST_F(QmrkctlOddLists, MayHaveAHistoryThatCannotBeRead) {
  EXPECT_EQ(qmrkctl({"classes", "enable", "Demo.Net"}).exitCode, 0);
  const std::string file = folder() + "/CA12.history";
  EXPECT_EQ(json({"history"})["result"]["file"], file);
  for (const char* const number : {"-1", "", "99999999999999999999"})
    EXPECT_EQ(qmrkctl({"history", "-n", number}).exitCode, 2) << number;
  testsupport::denyAccess(folder());
  EXPECT_EQ(testsupport::inForkedChild([] {
              if (::setresuid(other, other, other) != 0) return 1;
              const ChildResult result = qmrkctl({"history"});
              return result.exitCode == 4 && contains(result.errors, "sudo qmrkctl history has it") ? 0 : 2;
            }),
            0);
  std::filesystem::remove(file);
  std::filesystem::create_directory(file);
  const ChildResult result = qmrkctl({"history"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(contains(result.errors, "cannot read " + file + ": it is a folder")) << result.errors;
}

TEST_F(QmrkctlOddLists, OnAReadOnlyDiskAreNotPromisedToRoot) {
  ASSERT_EQ(::mount(folder().c_str(), folder().c_str(), nullptr, MS_BIND, nullptr), 0);
  ASSERT_EQ(::mount(nullptr, folder().c_str(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr), 0);
  const ChildResult result = qmrkctl({"classes", "enable", "Demo.Net"});
  EXPECT_EQ(::umount(folder().c_str()), 0);
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_TRUE(contains(result.errors, "not even root may")) << result.errors;
  EXPECT_FALSE(contains(result.errors, "sudo")) << result.errors;
}

// A process with a file system of its own, in which the list has the same path as one outside.
TEST_F(QmrkctlOddLists, OfAProcessInItsOwnMountsAreNotTakenForThoseOutside) {
  testsupport::CompanionProcess apart({"/usr/bin/unshare", "--mount", "/bin/sh", "-c",
                                       "cd '" + folder() + "' && mount -t tmpfs qmrk-test . && cd '" + folder() +
                                           "' && echo 'Demo.App;' >qmrk_logging_CA12.init && ln -s '" + folder() +
                                           "/led' CA12.lease && echo $$ && exec sleep 1000"});
  const std::string pid = apart.readLine();
  const std::string before = list();
  const ChildResult result = qmrkctl({"--pid", pid, "classes", "enable", "Demo.Net", "--for", "1h"});
  EXPECT_EQ(result.exitCode, 0) << result.output << result.errors;
  const std::string seen = "/proc/" + pid + "/root" + folder();
  EXPECT_EQ(testsupport::readFile(seen + "/qmrk_logging_CA12.init"), "Demo.App;\nDemo.Net;\n");
  EXPECT_TRUE(testsupport::exists(seen + "/led"));
  EXPECT_EQ(list(), before);
  EXPECT_FALSE(testsupport::exists(folder() + "/led"));
  apart.kill();
}

// Else the first file that is opened has the number of the stream, and receives what is printed.
TEST_F(QmrkctlOddLists, ReceiveNothingThatIsMeantForAClosedStream) {
  const ChildResult result =
      testsupport::runProgram("/bin/sh", {"-c", "exec \"$0\" \"$@\" >&-", QMRKCTL, "classes", "enable", "Demo.Net"});
  EXPECT_EQ(result.exitCode, 70);
  EXPECT_TRUE(contains(result.errors, "cannot be written")) << result.errors;
  EXPECT_EQ(list(), "Demo.App;\nDemo.Net.error;\nDemo.Net;\n");
  for (const std::string name : {"lock", "history", "lease"}) {
    if (!testsupport::exists(beside(name))) continue;
    EXPECT_FALSE(contains(testsupport::readFile(beside(name)), "no running application")) << name;
  }
}

TEST_F(QmrkctlOddLists, OfAProcessOfSomebodyElseAreRefusedWithWhoMay) {
  const std::string pid = std::to_string(::getpid());
  EXPECT_EQ(testsupport::inForkedChild([&] {
              if (::setresuid(other, other, other) != 0) return 1;
              const ChildResult why = qmrkctl({"--pid", pid, "why", "Demo.App"});
              if (why.exitCode != 4 || !contains(why.errors, "sudo qmrkctl --pid " + pid)) return 2;
              const ChildResult signal = qmrkctl({"--pid", pid, "signal"});
              if (signal.exitCode != 4 || !contains(signal.errors, "sudo qmrkctl --pid " + pid)) return 3;
              return 0;
            }),
            0);
}

TEST_F(QmrkctlOddLists, ThatCannotBeReadAreRefusedWithTheReason) {
  const std::string path = testsupport::replaced(sandbox_.initPath("CA12"), "\\", "/");
  ASSERT_EQ(::chmod(path.c_str(), 0), 0);
  EXPECT_EQ(testsupport::inForkedChild([&] {
              const std::string folder = path.substr(0, path.rfind('/'));
              if (::chown(folder.c_str(), other, other) != 0 || ::setresuid(other, other, other) != 0) return 1;
              const ChildResult result = qmrkctl({"classes", "enable", "Demo.Net"});
              if (result.exitCode != 4) return 2;
              return contains(result.errors, "permission denied for " + path + "; sudo qmrkctl classes enable has it\n")
                         ? 0
                         : 3;
            }),
            0);
  ASSERT_EQ(::unlink(path.c_str()), 0);
  ASSERT_EQ(::mkdir(path.c_str(), 0755), 0);
  const ChildResult result = qmrkctl({"classes", "enable", "Demo.Net"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.errors, "qmrkctl: cannot read " + path + ": it is a folder\n");
}

TEST_F(QmrkctlOddLists, OfAnotherCaThanWasNamedAreShownWithItsName) {
  for (const Names& command : {Names{"classes", "list"}, Names{"show"}, Names{"history"}}) {
    Names arguments = {"--ca", "CA99"};
    arguments.insert(arguments.end(), command.begin(), command.end());
    EXPECT_EQ(qmrkctl(arguments).errors, "qmrkctl: CA99 has no .cfg file; this is CA12\n") << command.front();
    arguments[1] = "CA12";
    EXPECT_EQ(qmrkctl(arguments).errors, "") << command.front();
  }
}

}  // namespace
