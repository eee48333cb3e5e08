// SPDX-License-Identifier: MIT
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <memory>
#include <thread>

#include "tests/support/linux/forked_child.h"
#include "tests/tools/linux/qmrkctl_on_sandbox.h"

namespace {

using testsupport::ChildResult;
using testsupport::Json;
using testsupport::Names;
using testsupport::other;
using testsupport::SleepingListener;
using testsupport::stranger;

using QmrkctlSteering = testsupport::QmrkctlOnSandbox;

TEST_F(QmrkctlSteering, ReachesEveryUserAndAPrivateSharedMemoryAndNamesTheStoppedProcess) {
  const SleepingListener own(follower("Pump"));
  const SleepingListener strange(follower("Valve", stranger));
  auto settings = follower("Hidden", other);
  settings.hasPrivateMemory = true;
  const SleepingListener apart(settings);
  const SleepingListener stopped(follower("Stopped", stranger));
  stopped.stop();
  const ChildResult result = qmrkctl({"--json", "classes", "enable", "Demo.Net", "--wait", "60s"});
  EXPECT_EQ(result.exitCode, 5) << result.output << result.errors;
  const Json object = Json::parse(result.output);
  EXPECT_EQ(outcomeOf(object, own), "applied");
  EXPECT_EQ(outcomeOf(object, strange), "applied");
  EXPECT_EQ(outcomeOf(object, apart), "applied");
  EXPECT_EQ(outcomeOf(object, stopped), "stopped");
  for (const Json& answer : object["result"]["answers"]) {
    if (answer["outcome"] != "applied") continue;
    EXPECT_EQ(answer["on"], Json({"Demo.Net"})) << answer;
  }
  EXPECT_EQ(list(), "Demo.App;\nDemo.Net.error;\nDemo.Net;\n");
}

TEST_F(QmrkctlSteering, SignalsEveryUserAsRoot) {
  const SleepingListener own(follower("Pump"));
  auto settings = follower("Hidden", stranger);
  settings.hasPrivateMemory = true;
  const SleepingListener apart(settings);
  const ChildResult result = qmrkctl({"signal", "--wait", "60s"});
  EXPECT_EQ(result.exitCode, 0) << result.output << result.errors;
  EXPECT_TRUE(contains(result.output, std::to_string(own.pid()) + " Pump root applied")) << result.output;
  EXPECT_TRUE(contains(result.output, std::to_string(apart.pid()) + " Hidden 12345 applied")) << result.output;
  EXPECT_TRUE(contains(result.output, "user 12345 with a /dev/shm of its own")) << result.output;
}

TEST_F(QmrkctlSteering, NeverSaysThatNobodyListensWhileOthersDo) {
  const SleepingListener strange(follower("Valve", stranger));
  testsupport::ChildResult result;
  EXPECT_EQ(testsupport::inForkedChild([&] {
              if (::setresuid(other, other, other) != 0) return 1;
              const ChildResult plain = qmrkctl({"signal"});
              if (plain.exitCode != 4 || contains(plain.output, "nobody listens")) return 2;
              if (!contains(plain.output, "but 1 of other users may")) return 3;
              if (!contains(plain.errors, "sudo qmrkctl signal")) return 4;
              const ChildResult named = qmrkctl({"--user", std::to_string(stranger), "signal"});
              if (named.exitCode != 4 || !contains(named.errors, "sudo qmrkctl signal")) return 5;
              const ChildResult apps = qmrkctl({"apps"});
              if (!contains(apps.output, "1 more of other users; sudo qmrkctl apps --all-users")) return 6;
              return 0;
            }),
            0);
}

TEST_F(QmrkctlSteering, ShowsApplicationsWithTheirState) {
  const SleepingListener pump(follower("Pump"));
  const SleepingListener hostile(follower("a\nb\x1b[31m"));
  const ChildResult result = qmrkctl({"apps"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(contains(result.output, "PID")) << result.output;
  EXPECT_TRUE(contains(result.output, "a\\nb\\x1b[31m")) << result.output;
  EXPECT_FALSE(contains(result.output, "\x1b[31m"));
  const Json apps = json({"apps"})["result"]["apps"];
  ASSERT_EQ(apps.size(), 2U);
  EXPECT_EQ(apps[0]["listens"], "yes");
  EXPECT_EQ(apps[0]["applied"], "yes");
  list("Demo.Other;\n");
  EXPECT_EQ(json({"apps"})["result"]["apps"][0]["applied"], "no");
}

TEST_F(QmrkctlSteering, ShowsOnlyTheApplicationsOfTheCaThatIsNamed) {
  auto settings = follower("Pump");
  settings.ca = "CA12";
  const SleepingListener pump(settings);
  settings = follower("Valve");
  settings.ca = "CA13";
  const SleepingListener valve(settings);
  const Json apps = json({"--ca", "ca12", "apps"})["result"]["apps"];
  ASSERT_EQ(apps.size(), 1U) << apps;
  EXPECT_EQ(apps[0]["application"], "Pump");
  const ChildResult none = qmrkctl({"--ca", "CA14", "apps"});
  EXPECT_EQ(none.exitCode, 3);
  EXPECT_EQ(none.output, "no running process uses CA14\n");
}

TEST_F(QmrkctlSteering, RefusesAnUnknownUser) {
  for (const std::string command : {"apps", "signal", "tail"}) {
    const ChildResult result = qmrkctl({"--user", "nobodyx", command});
    EXPECT_EQ(result.exitCode, 3) << command;
    EXPECT_TRUE(contains(result.errors, "there is no user \"nobodyx\"")) << command << result.errors;
  }
}

TEST_F(QmrkctlSteering, EndsTheWatchWithItsOwnCodeOnAnInterruption) {
  const SleepingListener pump(follower("Pump"));
  EXPECT_EQ(testsupport::inForkedChild([] {
              int ends[2];
              if (::pipe(ends) != 0) return 1;
              const pid_t child = ::fork();
              if (child == 0) {
                ::dup2(ends[1], STDOUT_FILENO);
                ::execl(QMRKCTL, QMRKCTL, "apps", "--watch", nullptr);
                ::_exit(99);
              }
              char byte = 0;
              if (::read(ends[0], &byte, 1) != 1) return 2;
              ::kill(child, SIGINT);
              return testsupport::exitCodeOf(child);
            }),
            130);
}

// A window of a server of its own.
ChildResult tmux(Names _arguments) {
  _arguments.insert(_arguments.begin(), {"-L", "qmrk-test-" + std::to_string(::getpid()), "-f", "/dev/null"});
  return testsupport::runProgram("/usr/bin/tmux", _arguments);
}

// Waits at most 30 s until the window shows a text, or shows it no more.
bool windowShows(const std::string& _text, bool _isWanted = true) {
  for (int attempt = 0; attempt < 600; ++attempt) {
    const bool isThere = tmux({"capture-pane", "-p"}).output.find(_text) != std::string::npos;
    if (isThere == _isWanted) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  return false;
}

TEST_F(QmrkctlSteering, RedrawsATerminalUntilCtrlC) {
  auto pump = std::make_unique<SleepingListener>(follower("Pump"));
  const std::string command = "trap : INT; " + std::string(QMRKCTL) + " apps --watch; echo ended with $?; cat";
  ASSERT_EQ(tmux({"new-session", "-d", "-x", "120", "-y", "30", "sh", "-c", command}).exitCode, 0);
  EXPECT_TRUE(windowShows("Pump"));
  pump.reset();
  EXPECT_TRUE(windowShows("Pump", false));
  EXPECT_TRUE(windowShows("no running process"));
  tmux({"send-keys", "C-c"});
  EXPECT_TRUE(windowShows("ended with 130"));
  tmux({"kill-server"});
}

TEST_F(QmrkctlSteering, AnswersSoonWithTwentyProcesses) {
  std::vector<std::unique_ptr<SleepingListener>> listeners;
  for (int i = 0; i < 20; ++i) {
    listeners.push_back(
        std::make_unique<SleepingListener>(follower("App" + std::to_string(i), i % 3 == 0 ? stranger : 0)));
  }
  std::vector<double> times;
  for (int round = 0; round < 20; ++round) {
    const Json object = json({"classes", round % 2 == 0 ? "enable" : "disable", "Demo.Net", "--wait", "60s"});
    ASSERT_EQ(object["result"]["answers"].size(), 20U) << object;
    for (const Json& answer : object["result"]["answers"]) {
      EXPECT_EQ(answer["outcome"], "applied") << answer;
      times.push_back(answer["milliseconds"]);
    }
  }
  std::sort(times.begin(), times.end());
  std::cout << "milliseconds from the setting of the event to the answer: median " << times[times.size() / 2]
            << ", p99 " << times[times.size() * 99 / 100] << ", most " << times.back() << "\n";
}

}  // namespace
