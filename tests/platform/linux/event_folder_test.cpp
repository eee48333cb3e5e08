// SPDX-License-Identifier: MIT
#include "platform/linux/event_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <fstream>
#include <string>

#include "platform/named_event.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/companion_process.h"
#include "tests/support/linux/file_size_limit.h"
#include "tests/support/linux/shared_memory_mount.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace platform;
using testsupport::namesIn;
using testsupport::stranger;

constexpr char name[] = "QMRK_EVENT_TEST";
constexpr ErrorCode fileTooLarge = 27;  // EFBIG, which has no Windows counterpart

// Every test gets an empty /dev/shm.
class EventFolder : public ::testing::Test {
 protected:
  void SetUp() override { testsupport::mountSharedMemory(limits()); }
  void TearDown() override { testsupport::unmountSharedMemory(); }
  virtual std::string limits() const { return ""; }

  static std::string folder() { return eventFolderPath(); }
  static std::string file() { return folder() + "/" + name; }

  static void expectRefused(ErrorCode _error) {
    EXPECT_EQ(createEvent(name), nullptr);
    EXPECT_EQ(lastError(), _error);
  }

  static void expectUsable() {
    const Handle event = createEvent(name);
    EXPECT_EQ(lastError(), noError);
    EXPECT_TRUE(setEvent(event));
    EXPECT_EQ(waitForEvent(event, 0), waitObject);
    EXPECT_TRUE(closeHandle(event));
  }

  static mode_t modeOf(const std::string& _path) {
    struct stat status {};
    EXPECT_EQ(::lstat(_path.c_str(), &status), 0) << _path;
    return status.st_mode & 07777;
  }

  // Any kind of thing in place of the file of the event, in a folder that is as it should be.
  static void makeFolder() { ASSERT_EQ(::mkdir(folder().c_str(), 0700), 0); }
};

TEST_F(EventFolder, BelongsToTheUserAlone) {
  const Handle event = createEvent(name);
  EXPECT_EQ(modeOf(folder()), 0700U);
  EXPECT_EQ(modeOf(file()), 0600U);
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(EventFolder, BecomesEmptyWithTheLastEvent) {
  expectUsable();
  EXPECT_TRUE(namesIn(folder()).empty());
}

TEST_F(EventFolder, HasTheRightModeUnderAnOddUmask) {
  const mode_t former = ::umask(0177);
  expectUsable();
  ::umask(former);
  EXPECT_EQ(modeOf(folder()), 0700U);
}

TEST_F(EventFolder, HoldsUsableEventsUnderTheTightestUmask) {
  const testsupport::AsUnprivilegedUser user;
  const mode_t former = ::umask(0777);
  const Handle event = createEvent(name);
  EXPECT_EQ(lastError(), noError);
  EXPECT_EQ(modeOf(file()), 0600U);
  const Handle again = createEvent(name);
  EXPECT_EQ(lastError(), errorAlreadyExists);
  ::umask(former);
  EXPECT_TRUE(closeHandle(again));
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(EventFolder, OpensAnEventWhoseCreatorHasYetToSetItsMode) {
  const testsupport::AsUnprivilegedUser user;
  makeFolder();
  std::ofstream(file()) << "event";
  ASSERT_EQ(::chmod(file().c_str(), 0), 0);
  expectUsable();
}

TEST_F(EventFolder, GetsTheModeThatItsCreatorHasYetToSet) {
  makeFolder();
  for (const mode_t mode : {0000, 0500}) {
    ASSERT_EQ(::chmod(folder().c_str(), mode), 0);
    expectUsable();
    EXPECT_EQ(modeOf(folder()), 0700U);
  }
  const testsupport::AsUnprivilegedUser user;
  makeFolder();
  ASSERT_EQ(::chmod(folder().c_str(), 0), 0);
  expectUsable();
  EXPECT_EQ(modeOf(folder()), 0700U);
}

TEST_F(EventFolder, FollowsNoPlantedLink) {
  const testsupport::TemporaryFolder elsewhere;
  ASSERT_EQ(::chmod(elsewhere.path().c_str(), 0700), 0);
  ASSERT_EQ(::symlink(elsewhere.path().c_str(), folder().c_str()), 0);
  expectRefused(errorAccessDenied);
  EXPECT_TRUE(namesIn(elsewhere.path()).empty());
}

TEST_F(EventFolder, RejectsAFolderThatAnotherUserCreated) {
  makeFolder();
  ASSERT_EQ(::chown(folder().c_str(), stranger, stranger), 0);
  expectRefused(errorAccessDenied);
}

TEST_F(EventFolder, RejectsAFolderThatOthersMayEnter) {
  makeFolder();
  ASSERT_EQ(::chmod(folder().c_str(), 0755), 0);
  expectRefused(errorAccessDenied);
  ASSERT_EQ(::chmod(folder().c_str(), 0700), 0);
  expectUsable();
}

TEST_F(EventFolder, RejectsAFileInItsPlace) {
  std::ofstream(folder()) << "squatted";
  expectRefused(errorAccessDenied);
}

TEST_F(EventFolder, RejectsALinkInPlaceOfAnEvent) {
  const testsupport::TemporaryFolder elsewhere;
  makeFolder();
  const std::string target = elsewhere.path() + "/target";
  ASSERT_EQ(::symlink(target.c_str(), file().c_str()), 0);
  expectRefused(errorAccessDenied);
  EXPECT_FALSE(testsupport::exists(target));
}

TEST_F(EventFolder, RejectsAPipeInPlaceOfAnEvent) {
  makeFolder();
  ASSERT_EQ(::mkfifo(file().c_str(), 0600), 0);
  expectRefused(errorAccessDenied);
}

TEST_F(EventFolder, RejectsAnEventOfAnotherUser) {
  makeFolder();
  std::ofstream(file()) << "event";
  ASSERT_EQ(::chmod(file().c_str(), 0600), 0);
  ASSERT_EQ(::chown(file().c_str(), stranger, stranger), 0);
  expectRefused(errorAccessDenied);
}

TEST_F(EventFolder, RejectsAnEventThatOthersMayWrite) {
  makeFolder();
  std::ofstream(file()) << "event";
  ASSERT_EQ(::chmod(file().c_str(), 0666), 0);
  expectRefused(errorAccessDenied);
}

TEST_F(EventFolder, KeepsTheEventsOfUsersApart) {
  const Handle event = createEvent(name);
  ASSERT_TRUE(setEvent(event));
  testsupport::CompanionProcess other({QMRK_EVENT_ACTOR});
  ASSERT_EQ(other.ask("becomeNobody"), "done");
  EXPECT_EQ(other.ask(std::string("open ") + name), "failed 2");
  EXPECT_EQ(other.ask(std::string("create ") + name), "created");
  EXPECT_EQ(other.ask("wait 0"), "258");
  EXPECT_EQ(other.ask("set"), "true");
  EXPECT_EQ(other.ask("reset"), "true");
  EXPECT_EQ(waitForEvent(event, 0), waitObject);
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(EventFolder, SurvivesAFileSizeLimit) {
  {
    const testsupport::FileSizeLimit limit(0);
    expectRefused(fileTooLarge);
  }
  EXPECT_TRUE(namesIn(folder()).empty());
  expectUsable();
}

class FullSharedMemory : public EventFolder {
  std::string limits() const override { return "size=4k"; }
};

TEST_F(FullSharedMemory, RefusesAnEventAndKeepsNothingOfIt) {
  std::ofstream("/dev/shm/filler") << std::string(4096, 'x') << std::flush;
  expectRefused(errorDiskFull);
  EXPECT_TRUE(namesIn(folder()).empty());
  ASSERT_EQ(::unlink("/dev/shm/filler"), 0);
  expectUsable();
}

TEST_F(FullSharedMemory, LeavesAnEventThatExistsUsable) {
  const Handle event = createEvent(name);
  ASSERT_EQ(lastError(), noError);
  EXPECT_EQ(createEvent("QMRK_EVENT_TEST.second"), nullptr);
  EXPECT_EQ(lastError(), errorDiskFull);
  const Handle again = createEvent(name);
  EXPECT_EQ(lastError(), errorAlreadyExists);
  EXPECT_TRUE(setEvent(again));
  EXPECT_EQ(waitForEvent(event, 0), waitObject);
  EXPECT_TRUE(closeHandle(again));
  EXPECT_TRUE(closeHandle(event));
}

class SharedMemoryWithoutInodes : public EventFolder {
  std::string limits() const override { return "nr_inodes=1"; }
};

TEST_F(SharedMemoryWithoutInodes, RefusesTheFolder) { expectRefused(errorDiskFull); }

class SharedMemoryWithOneInode : public EventFolder {
  std::string limits() const override { return "nr_inodes=2"; }
};

TEST_F(SharedMemoryWithOneInode, RefusesTheEvent) {
  expectRefused(errorDiskFull);
  EXPECT_TRUE(namesIn(folder()).empty());
}

}  // namespace
