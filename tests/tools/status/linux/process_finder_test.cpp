// SPDX-License-Identifier: MIT
#include "tools/status/process_finder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <utility>

#include "platform/running_process.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/linux/shared_memory_mount.h"
#include "tests/support/temporary_folder.h"
#include "tests/tools/status/page_image.h"

namespace {

using qmrkctl::findProcesses;
using qmrkctl::FoundProcess;
using qmrkctl::PageState;
using testsupport::PageImage;
using testsupport::TemporaryFolder;
using testsupport::writeFile;
namespace status = Quillmark_logging::status;

constexpr unsigned int stranger = 12345;

// Every test gets an empty /dev/shm with an empty folder of pages.
class ProcessFinder : public ::testing::Test {
 protected:
  void SetUp() override {
    testsupport::mountSharedMemory("");
    makeFolders("");
  }
  void TearDown() override { testsupport::unmountSharedMemory(); }

  static std::string folder() { return "/dev/shm/qmrk-" + std::to_string(::geteuid()); }
  static std::string pages() { return folder() + "/apps"; }
  static std::string own() { return pages() + "/" + std::to_string(::getpid()); }

  static void makeFolders(const std::string& _root) {
    ASSERT_EQ(::mkdir((_root + folder()).c_str(), 0700), 0);
    ASSERT_EQ(::mkdir((_root + pages()).c_str(), 0700), 0);
  }

  static PageImage pageOf(std::uint32_t _pid, std::uint64_t _startTime) {
    return PageImage().number(status::pid, _pid).number(status::startTime, _startTime);
  }

  static PageImage ownPage() { return pageOf(ownPid(), platform::startTimeOf(ownPid())); }

  static std::uint32_t ownPid() { return static_cast<std::uint32_t>(::getpid()); }

  static void write(const std::string& _path, const std::string& _bytes) {
    writeFile(_path, _bytes);
    ASSERT_EQ(::chmod(_path.c_str(), 0600), 0);
  }

  static std::vector<FoundProcess> findOwn() { return findProcesses({"", ::geteuid()}); }

  // The state of the only page, which must be that of this process.
  static PageState onlyState() {
    const auto found = findOwn();
    EXPECT_EQ(found.size(), 1U);
    return found.size() == 1 ? found[0].state : PageState::live;
  }
};

TEST_F(ProcessFinder, FindsALiveProcess) {
  write(own(), ownPage().bytes());
  const auto found = findOwn();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].state, PageState::live);
  EXPECT_EQ(found[0].processId, ownPid());
  EXPECT_EQ(found[0].userId, ::geteuid());
  EXPECT_EQ(found[0].path, own());
  ASSERT_TRUE(found[0].status);
  EXPECT_EQ(found[0].status->pid, ownPid());
}

TEST_F(ProcessFinder, FindsNothingWithoutFolders) {
  ASSERT_EQ(::rmdir(pages().c_str()), 0);
  EXPECT_TRUE(findOwn().empty());
  ASSERT_EQ(::rmdir(folder().c_str()), 0);
  EXPECT_TRUE(findOwn().empty());
}

TEST_F(ProcessFinder, KnowsAnEarlierProcessOfTheSameIdByItsStart) {
  write(own(), pageOf(ownPid(), platform::startTimeOf(ownPid()) - 1).bytes());
  EXPECT_EQ(onlyState(), PageState::stale);
}

TEST_F(ProcessFinder, KnowsAKilledProcessEvenAsAZombie) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(0);
  siginfo_t ended;
  ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT), 0);
  write(pages() + "/" + std::to_string(child), pageOf(static_cast<std::uint32_t>(child), 0).bytes());
  EXPECT_EQ(onlyState(), PageState::stale);
  ::waitpid(child, nullptr, 0);
  EXPECT_EQ(onlyState(), PageState::stale);
}

TEST_F(ProcessFinder, CannotJudgeAProcessOfAnotherNamespace) {
  write(pages() + "/999999", pageOf(999'999, 5).number(status::pidNamespace, 1).bytes());
  const auto found = findOwn();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].state, PageState::live);
  EXPECT_EQ(found[0].processId, 0U);
}

TEST_F(ProcessFinder, DoesNotTrustAFileThatIsNoPage) {
  write(own(), std::string(status::pageSize, 'x'));
  EXPECT_EQ(onlyState(), PageState::notTrusted);
}

TEST_F(ProcessFinder, DoesNotTrustThePageOfAnotherProcess) {
  write(own(), pageOf(1, 0).bytes());
  EXPECT_EQ(onlyState(), PageState::notTrusted);
}

TEST_F(ProcessFinder, DoesNotTrustAPageOfAnotherSize) {
  write(own(), ownPage().bytes() + "x");
  EXPECT_EQ(onlyState(), PageState::notTrusted);
  write(own(), ownPage().bytes().substr(1));
  EXPECT_EQ(onlyState(), PageState::notTrusted);
  write(own(), "");
  EXPECT_EQ(onlyState(), PageState::notTrusted);
}

TEST_F(ProcessFinder, DoesNotTrustAPageThatIsOpenToOthers) {
  write(own(), ownPage().bytes());
  ASSERT_EQ(::chmod(own().c_str(), 0640), 0);
  EXPECT_EQ(onlyState(), PageState::notTrusted);
}

TEST_F(ProcessFinder, DoesNotTrustAPageOfAnotherUser) {
  write(own(), ownPage().bytes());
  ASSERT_EQ(::chown(own().c_str(), stranger, 0), 0);
  EXPECT_EQ(onlyState(), PageState::notTrusted);
}

TEST_F(ProcessFinder, FollowsNoLinkInPlaceOfAPage) {
  const TemporaryFolder elsewhere;
  write(elsewhere.path() + "/page", ownPage().bytes());
  ASSERT_EQ(::symlink((elsewhere.path() + "/page").c_str(), own().c_str()), 0);
  EXPECT_EQ(onlyState(), PageState::notTrusted);
}

TEST_F(ProcessFinder, DoesNotWaitForAPipeOrReadADevice) {
  ASSERT_EQ(::mkfifo(own().c_str(), 0600), 0);
  EXPECT_EQ(onlyState(), PageState::notTrusted);
  ASSERT_EQ(::unlink(own().c_str()), 0);
  ASSERT_EQ(::mkdir(own().c_str(), 0700), 0);
  EXPECT_EQ(onlyState(), PageState::notTrusted);
}

TEST_F(ProcessFinder, SkipsNamesThatAreNoProcessIds) {
  for (const char* name : {"x", "-1", "+1", "007", "1.", " 1", "99999999999"})
    write(pages() + "/" + name, "x");
  EXPECT_TRUE(findOwn().empty());
}

TEST_F(ProcessFinder, DoesNotTrustAFolderThatIsOpenToOthers) {
  write(own(), ownPage().bytes());
  ASSERT_EQ(::chmod(pages().c_str(), 0755), 0);
  EXPECT_EQ(onlyState(), PageState::notTrusted);
  ASSERT_EQ(::chmod(pages().c_str(), 0700), 0);
  ASSERT_EQ(::chmod(folder().c_str(), 0770), 0);
  EXPECT_EQ(onlyState(), PageState::notTrusted);
}

TEST_F(ProcessFinder, DoesNotTrustAFolderOfAnotherUser) {
  ASSERT_EQ(::chown(folder().c_str(), stranger, 0), 0);
  EXPECT_EQ(onlyState(), PageState::notTrusted);
}

TEST_F(ProcessFinder, FollowsNoLinkInPlaceOfAFolder) {
  ASSERT_EQ(::rename(pages().c_str(), (folder() + "/elsewhere").c_str()), 0);
  ASSERT_EQ(::symlink("elsewhere", pages().c_str()), 0);
  EXPECT_EQ(onlyState(), PageState::notTrusted);
}

TEST_F(ProcessFinder, GivesUpOnAPageThatStaysBusy) {
  write(own(), ownPage().number(status::sequence, 7).bytes());
  EXPECT_EQ(onlyState(), PageState::busy);
}

TEST_F(ProcessFinder, ReportsFoldersThatItMayNotOpen) {
  const testsupport::AsUnprivilegedUser unprivileged;
  const auto found = findProcesses({"", std::nullopt});
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].state, PageState::denied);
  EXPECT_EQ(found[0].userId, 0U);
}

TEST_F(ProcessFinder, FindsTheProcessesOfAllUsers) {
  write(own(), ownPage().bytes());
  const std::string theirs = "/dev/shm/qmrk-12345/apps/" + std::to_string(::getppid());
  ASSERT_EQ(::mkdir("/dev/shm/qmrk-12345", 0700), 0);
  ASSERT_EQ(::mkdir("/dev/shm/qmrk-12345/apps", 0700), 0);
  write(theirs, pageOf(static_cast<std::uint32_t>(::getppid()), 0).bytes());
  for (const std::string& path :
       {std::string("/dev/shm/qmrk-12345"), std::string("/dev/shm/qmrk-12345/apps"), theirs}) {
    ASSERT_EQ(::chown(path.c_str(), stranger, stranger), 0);
  }
  const auto found = findProcesses({"", std::nullopt});
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].userId + found[1].userId, stranger);
  EXPECT_EQ(found[0].state, PageState::live);
  EXPECT_EQ(found[1].state, PageState::live);
}

TEST_F(ProcessFinder, LooksThroughTheRootOfAProcessWithItsOwnSharedMemory) {
  const testsupport::SleepingChild child([] {
    testsupport::mountSharedMemory("");
    makeFolders("");
    write(own(), ownPage().bytes());
  });
  std::vector<FoundProcess> found;
  const std::string root = "/proc/" + std::to_string(child.process()) + "/root";
  while (found.empty() || found[0].state != PageState::live)
    found = findProcesses({root, std::nullopt});
  EXPECT_EQ(found[0].processId, static_cast<std::uint32_t>(child.process()));
  EXPECT_EQ(found[0].path, root + pages() + "/" + std::to_string(child.process()));
}

TEST_F(ProcessFinder, FollowsNoLinkBelowAForeignRoot) {
  const TemporaryFolder root;
  write(own(), ownPage().bytes());
  ASSERT_EQ(::symlink("/dev", (root.path() + "/dev").c_str()), 0);
  EXPECT_TRUE(findProcesses({root.path(), ::geteuid()}).empty());
}

}  // namespace
