// SPDX-License-Identifier: MIT
#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <thread>

#include "quillmark_logging.h"
#include "tests/logsetup/linux/page_in_its_folder.h"
#include "tests/support/linux/forked_child.h"

namespace {

using namespace Quillmark_logging;
using qmrkctl::PageState;
using testsupport::inForkedChild;
using testsupport::ownStatus;
using testsupport::pageOf;
using testsupport::SleepingChild;

using StatusPageLife = testsupport::PageInItsFolder;

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

TEST_F(StatusPageLife, OutlastsAKilledProcessUntilTheNextOneRemovesIt) {
  SleepingChild child([] { setUp(); });
  const pid_t process = child.process();
  EXPECT_EQ(pageOf(process).state, PageState::live);
  child.kill();
  EXPECT_EQ(pageOf(process).state, PageState::stale);
  ASSERT_TRUE(setUp());
  EXPECT_FALSE(exists(pathOf(process)));
}

TEST_F(StatusPageLife, BecomesStaleWhenItsProcessRunsAnotherProgram) {
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

TEST_F(StatusPageLife, StaysWholeForAReaderDuringAWrite) {
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
  const qmrkctl::ProcessStatus page = ownStatus();
  // Files of other tests of this process are known too.
  const auto file = std::ranges::find_if(
      page.files, [&page](const qmrkctl::LogFileStatus& _file) { return _file.path.text == page.commonLogPath.text; });
  ASSERT_NE(file, page.files.end());
  EXPECT_EQ(file->lost, 400U);
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
