// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/running_processes.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/named_event.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/linux/shared_memory_mount.h"
#include "tests/support/private_events.h"
#include "tests/tools/qmrkctl/linux/sleeping_listener.h"

namespace {

using namespace qmrkctl;
using testsupport::SleepingListener;
using testsupport::stranger;
using toolsystem::Activity;

class RunningProcessSearch : public ::testing::Test {
 protected:
  void SetUp() override {
    testsupport::usePrivateProcesses();
    testsupport::mountSharedMemory("");
  }
  void TearDown() override { testsupport::unmountSharedMemory(); }

  static const RunningProcess* find(const RunningProcesses& _processes, pid_t _pid) {
    for (const RunningProcess& process : _processes.found) {
      if (process.pid() == static_cast<std::uint32_t>(_pid)) return &process;
    }
    return nullptr;
  }

  static ProcessQuery everybody() {
    ProcessQuery query;
    query.allUsers = true;
    return query;
  }
};

TEST_F(RunningProcessSearch, FindsAProcessByTheEventThatItHolds) {
  const SleepingListener listener({});
  const RunningProcesses processes = runningProcesses({});
  const RunningProcess* const found = find(processes, listener.pid());
  ASSERT_NE(found, nullptr);
  EXPECT_TRUE(listensTo(*found, "QMRK_LOG_EVENT"));
  EXPECT_FALSE(listensTo(*found, "QMRK_OTHER_EVENT"));
  EXPECT_EQ(found->facts.activity, Activity::running);
  EXPECT_EQ(found->facts.root, "");
  EXPECT_FALSE(found->status);
  EXPECT_EQ(processes.ofOthers, 0U);
}

TEST_F(RunningProcessSearch, ReadsThePageAndNamesTheApplications) {
  SleepingListener::Settings settings;
  settings.applications = {"Pump", "Valve"};
  const SleepingListener listener(settings);
  const RunningProcesses processes = runningProcesses({});
  const RunningProcess* const found = find(processes, listener.pid());
  ASSERT_NE(found, nullptr);
  ASSERT_TRUE(found->status);
  EXPECT_EQ(found->application, "Pump, Valve");
  ProcessQuery query;
  query.application = "Valve";
  EXPECT_NE(find(runningProcesses(query), listener.pid()), nullptr);
  query.application = "Pipe";
  EXPECT_EQ(find(runningProcesses(query), listener.pid()), nullptr);
}

TEST_F(RunningProcessSearch, SeesAStoppedProcess) {
  const SleepingListener listener({});
  ASSERT_EQ(::kill(listener.pid(), SIGSTOP), 0);
  ASSERT_EQ(::waitpid(listener.pid(), nullptr, WUNTRACED), listener.pid());
  const RunningProcesses processes = runningProcesses({});
  const RunningProcess* const found = find(processes, listener.pid());
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->facts.activity, Activity::stopped);
}

TEST_F(RunningProcessSearch, OnlyCountsTheProcessesOfOthersUnlessAskedForThem) {
  SleepingListener::Settings settings;
  settings.userId = stranger;
  settings.applications = {"Pump"};
  const SleepingListener listener(settings);
  EXPECT_EQ(find(runningProcesses({}), listener.pid()), nullptr);
  EXPECT_EQ(runningProcesses({}).ofOthers, 1U);
  const RunningProcesses all = runningProcesses(everybody());
  const RunningProcess* const found = find(all, listener.pid());
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->facts.userId, stranger);
  EXPECT_EQ(found->facts.user, std::to_string(stranger));
  EXPECT_EQ(found->application, "Pump");
  ProcessQuery query;
  query.user = std::to_string(stranger);
  EXPECT_NE(find(runningProcesses(query), listener.pid()), nullptr);
}

TEST_F(RunningProcessSearch, CountsListenersOfOthersThatItMayNotInspect) {
  SleepingListener::Settings settings;
  settings.userId = stranger;
  const SleepingListener one(settings);
  const SleepingListener other(settings);
  EXPECT_EQ(testsupport::inForkedChild([] {
              if (::setresuid(54321, 54321, 54321) != 0) return 100;
              return static_cast<int>(runningProcesses({}).ofOthers);
            }),
            2);
}

TEST_F(RunningProcessSearch, ReadsThePageInAPrivateSharedMemory) {
  SleepingListener::Settings settings;
  settings.userId = stranger;
  settings.hasPrivateMemory = true;
  settings.applications = {"Hidden"};
  const SleepingListener listener(settings);
  const RunningProcesses all = runningProcesses(everybody());
  const RunningProcess* const found = find(all, listener.pid());
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->application, "Hidden");
  EXPECT_EQ(found->facts.root, "/proc/" + std::to_string(listener.pid()) + "/root");
}

TEST_F(RunningProcessSearch, CanFindOneProcessOnly) {
  const SleepingListener one({});
  const SleepingListener other({});
  ProcessQuery query;
  query.pid = static_cast<std::uint32_t>(one.pid());
  const RunningProcesses processes = runningProcesses(query);
  EXPECT_EQ(processes.found.size(), 1U);
  EXPECT_NE(find(processes, one.pid()), nullptr);
}

}  // namespace
