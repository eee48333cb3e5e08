// SPDX-License-Identifier: MIT
#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <thread>

#include "platform/linux/event_folder.h"
#include "platform/linux/status_folder.h"
#include "quillmark_logging.h"
#include "tests/logsetup/log_set_up.h"
#include "tests/logsetup/own_status.h"
#include "tests/support/fault_plan.h"
#include "tests/support/linux/file_size_limit.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/linux/shared_memory_mount.h"

namespace {

using namespace Quillmark_logging;
using qmrkctl::PageState;
using testsupport::inForkedChild;
using testsupport::ownStatus;
using testsupport::pageOf;
using testsupport::SleepingChild;

// Every test gets an empty /dev/shm.
class StatusPageLife : public testsupport::LogSetUp {
 protected:
  StatusPageLife() {
    testsupport::mountSharedMemory("");
    sandbox_.writeInit("CA12", "Def;");
    sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=Def;\n");
  }

  static bool setUp() { return initDefaultLogs("App", "CA12", false); }
  static std::string pathOf(int _process) { return platform::statusFolderPath() + "/" + std::to_string(_process); }
  static std::string own() { return pathOf(::getpid()); }
  static bool exists(const std::string& _path) { return ::access(_path.c_str(), F_OK) == 0; }
  static testsupport::FaultPlan aFullDisk() { return {platform::Call::append, 1, platform::errorDiskFull, 1000}; }

  static mode_t modeOf(const std::string& _path) {
    struct stat status {};
    EXPECT_EQ(::lstat(_path.c_str(), &status), 0) << _path;
    return status.st_mode & 07777;
  }

  static void expectNoPage() {
    EXPECT_TRUE(setUp());
    EXPECT_TRUE(testsupport::showsNothing());
    log("Def.a", "works all the same");
  }
};

TEST_F(StatusPageLife, BeginsForTheUserAloneUnderAnyUmask) {
  const mode_t former = ::umask(0777);
  ::umask(0177);
  ASSERT_TRUE(setUp());
  ::umask(former);
  EXPECT_EQ(modeOf(platform::statusFolderPath()), 0700U);
  EXPECT_EQ(modeOf(own()), 0600U);
  EXPECT_EQ(pageOf(::getpid()).state, PageState::live);
}

TEST_F(StatusPageLife, EndsWithANormalExit) {
  const pid_t child = ::fork();
  if (child == 0) std::exit(setUp() && exists(own()) ? 0 : 1);
  EXPECT_EQ(testsupport::exitCodeOf(child), 0);
  EXPECT_FALSE(exists(pathOf(child)));
}

TEST_F(StatusPageLife, IsLeftByAKilledProcessAndRemovedByTheNextOne) {
  SleepingChild child([] { setUp(); });
  const pid_t process = child.process();
  EXPECT_EQ(pageOf(process).state, PageState::live);
  child.kill();
  EXPECT_EQ(pageOf(process).state, PageState::stale);
  ASSERT_TRUE(setUp());
  EXPECT_FALSE(exists(pathOf(process)));
}

TEST_F(StatusPageLife, IsStaleWhenAnotherProgramRunsInItsProcess) {
  int ends[2];
  ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    setUp();
    ::execlp("sleep", "sleep", "1000", nullptr);
    ::_exit(1);
  }
  ::close(ends[1]);
  char byte = 0;
  EXPECT_EQ(::read(ends[0], &byte, 1), 0) << "the end of the pipe tells of the exec";
  EXPECT_TRUE(exists(pathOf(child)));
  EXPECT_EQ(pageOf(child).state, PageState::stale);
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
}

TEST_F(StatusPageLife, BelongsToTheParentAfterAFork) {
  ASSERT_TRUE(setUp());
  const std::uint64_t generation = ownStatus().classes.generation;
  const pid_t parent = ::getpid();
  EXPECT_EQ(inForkedChild([&] {
              const testsupport::FaultPlan plan(aFullDisk());
              log("Def.a", "lost by the child");
              if (exists(own()) || pageOf(parent).status->files.at(0).lost != 0) return 1;
              if (!updateLogLevels("CA12")) return 2;
              const auto child = pageOf(::getpid());
              if (child.state != PageState::live || child.status->pid != static_cast<std::uint32_t>(::getpid()))
                return 3;
              return child.status->classes.generation == generation + 1 ? 0 : 4;
            }),
            0);
  EXPECT_EQ(pageOf(parent).state, PageState::live);
  EXPECT_EQ(ownStatus().classes.generation, generation);
}

TEST_F(StatusPageLife, StaysWhenAForkedChildExits) {
  ASSERT_TRUE(setUp());
  const pid_t child = ::fork();
  if (child == 0) std::exit(0);
  EXPECT_EQ(testsupport::exitCodeOf(child), 0);
  EXPECT_EQ(pageOf(::getpid()).state, PageState::live);
}

TEST_F(StatusPageLife, BelongsToTheParentAfterAForkOfWhichNobodyTells) {
  ASSERT_TRUE(setUp());
  const auto child = static_cast<pid_t>(::syscall(SYS_fork));
  if (child == 0) {
    const testsupport::FaultPlan plan(aFullDisk());
    log("Def.a", "lost by the child");
    ::_exit(0);
  }
  EXPECT_EQ(testsupport::exitCodeOf(child), 0);
  EXPECT_EQ(ownStatus().files.at(0).lost, 0U);
}

TEST_F(StatusPageLife, LetsChildrenBeForkedWhileItIsWritten) {
  ASSERT_TRUE(setUp());
  std::atomic<bool> isOver{false};
  std::thread writer([&] {
    while (!isOver)
      updateLogLevels("CA12");
  });
  for (int i = 0; i < 50; ++i) {
    EXPECT_EQ(inForkedChild([] { return updateLogLevels("CA12") && pageOf(::getpid()).status ? 0 : 1; }), 0);
  }
  isOver = true;
  writer.join();
}

TEST_F(StatusPageLife, IsMadeAgainWhenItsFolderIsRemoved) {
  ASSERT_TRUE(setUp());
  ASSERT_EQ(::unlink(own().c_str()), 0);
  ASSERT_EQ(::rmdir(platform::statusFolderPath().c_str()), 0);
  ASSERT_EQ(::rmdir(platform::eventFolderPath().c_str()), 0);
  ASSERT_TRUE(updateLogLevels("CA12"));
  EXPECT_EQ(ownStatus().caInEffect, "CA12");
}

TEST_F(StatusPageLife, IsMadeAgainWhenAnotherFileTookItsPlace) {
  ASSERT_TRUE(setUp());
  testsupport::writeFile(own(), "not a page");
  ASSERT_EQ(::unlink(own().c_str()), 0);
  testsupport::writeFile(own(), "not a page");
  ASSERT_TRUE(updateLogLevels("CA12"));
  EXPECT_EQ(pageOf(::getpid()).state, PageState::live);
}

TEST_F(StatusPageLife, IsMissedByNobodyInAFullSharedMemory) {
  for (const char* limits : {"size=4k", "size=8k", "nr_inodes=2", "nr_inodes=3"}) {
    testsupport::mountSharedMemory(limits);
    expectNoPage();
    testsupport::unmountSharedMemory();
  }
}

TEST_F(StatusPageLife, IsMissedByNobodyInAReadOnlySharedMemory) {
  ASSERT_EQ(::mount(nullptr, "/dev/shm", nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
  expectNoPage();
}

TEST_F(StatusPageLife, IsMissedByNobodyBeyondAFileSizeLimit) {
  ASSERT_TRUE(setUp());
  ASSERT_EQ(::unlink(own().c_str()), 0);
  const testsupport::FileSizeLimit limit(1000);
  EXPECT_TRUE(updateLogLevels("CA12"));
  EXPECT_TRUE(testsupport::showsNothing());
}

TEST_F(StatusPageLife, TrustsNoForeignFolder) {
  ASSERT_EQ(::mkdir(platform::eventFolderPath().c_str(), 0700), 0);
  ASSERT_EQ(::mkdir(platform::statusFolderPath().c_str(), 0777), 0);
  ASSERT_EQ(::chmod(platform::statusFolderPath().c_str(), 0777), 0);
  expectNoPage();
  ASSERT_EQ(::rmdir(platform::statusFolderPath().c_str()), 0);
  ASSERT_EQ(::symlink("/tmp", platform::statusFolderPath().c_str()), 0);
  expectNoPage();
  EXPECT_FALSE(exists("/tmp/" + std::to_string(::getpid())));
}

TEST_F(StatusPageLife, FollowsNoLinkInItsPlace) {
  const testsupport::TemporaryFolder elsewhere;
  testsupport::writeFile(elsewhere.path() + "/victim", "untouched");
  ASSERT_EQ(::mkdir(platform::eventFolderPath().c_str(), 0700), 0);
  ASSERT_EQ(::mkdir(platform::statusFolderPath().c_str(), 0700), 0);
  for (const char* name : {"", "."}) {
    const std::string link = platform::statusFolderPath() + "/" + name + std::to_string(::getpid());
    ASSERT_EQ(::symlink((elsewhere.path() + "/victim").c_str(), link.c_str()), 0);
  }
  ASSERT_TRUE(setUp());
  EXPECT_EQ(testsupport::readFile(elsewhere.path() + "/victim"), "untouched");
  EXPECT_EQ(pageOf(::getpid()).state, PageState::live);
}

TEST_F(StatusPageLife, IsNotMadeInPlaceOfAFolder) {
  ASSERT_EQ(::mkdir(platform::eventFolderPath().c_str(), 0700), 0);
  ASSERT_EQ(::mkdir(platform::statusFolderPath().c_str(), 0700), 0);
  ASSERT_EQ(::mkdir(own().c_str(), 0700), 0);
  expectNoPage();
  EXPECT_FALSE(exists(platform::statusFolderPath() + "/." + std::to_string(::getpid())));
}

TEST_F(StatusPageLife, IsWholeForWhoReadsItWhileItIsWritten) {
  ASSERT_TRUE(setUp());
  std::atomic<bool> isOver{false};
  std::thread writer([&] {
    for (char letter = 'a'; !isOver; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
      sandbox_.writeInit("CA12", std::string(10'000, letter) + ";");
      updateLogLevels("CA12");
    }
  });
  for (int i = 0; i < 300; ++i) {
    const auto found = pageOf(::getpid());
    if (found.state == PageState::busy) continue;
    ASSERT_TRUE(found.status);
    EXPECT_EQ(found.status->classes.hash, status::hashOf(found.status->classes.text.text));
  }
  isOver = true;
  writer.join();
}

TEST_F(StatusPageLife, SurvivesTheCancellationOfAThreadThatWritesIt) {
  ASSERT_TRUE(setUp());
  for (int i = 0; i < 20; ++i) {
    pthread_t thread{};
    const auto body = [](void* /*_unused*/) -> void* {
      for (;;) {
        updateLogLevels("CA12");
        ::pthread_testcancel();
      }
    };
    ASSERT_EQ(::pthread_create(&thread, nullptr, body, nullptr), 0);
    std::this_thread::yield();
    ::pthread_cancel(thread);
    ASSERT_EQ(::pthread_join(thread, nullptr), 0);
    EXPECT_EQ(pageOf(::getpid()).state, PageState::live);
  }
  const std::uint64_t generation = ownStatus().classes.generation;
  ASSERT_TRUE(updateLogLevels("CA12"));
  EXPECT_EQ(ownStatus().classes.generation, generation + 1);
}

TEST_F(StatusPageLife, CountsWhatManyThreadsLoseAtOnce) {
  ASSERT_TRUE(setUp());
  {
    const testsupport::FaultPlan plan(platform::Call::append, 1, platform::errorDiskFull, 1'000'000);
    std::thread other([] {
      for (int i = 0; i < 200; ++i)
        log("Def.a", "lost");
    });
    for (int i = 0; i < 200; ++i)
      log("Def.b", "lost");
    other.join();
  }
  EXPECT_EQ(ownStatus().files.at(0).lost, 400U);
}

TEST_F(StatusPageLife, OutlivesDlcloseAndEndsWithTheProcess) {
  const pid_t child = ::fork();
  if (child == 0) {
    void* const library = ::dlopen(QMRK_LOG_LIBRARY, RTLD_NOW);
    if (library == nullptr) ::_exit(1);
    constexpr char name[] = "_ZN17Quillmark_logging14disableAllLogsEv";
    const auto disable = reinterpret_cast<void (*)()>(::dlsym(library, name));
    if (disable == nullptr) ::_exit(2);
    disable();
    if (!exists(own())) ::_exit(3);
    ::dlclose(library);
    std::exit(exists(own()) && pageOf(::getpid()).state == PageState::live ? 0 : 4);
  }
  EXPECT_EQ(testsupport::exitCodeOf(child), 0);
  EXPECT_FALSE(exists(pathOf(child)));
}

}  // namespace
