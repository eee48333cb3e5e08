// SPDX-License-Identifier: MIT
#include "tools/status/page_watch.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <string>

#include "tests/support/linux/shared_memory_mount.h"
#include "tests/support/temporary_folder.h"
#include "tests/tools/status/page_image.h"

namespace {

using qmrkctl::PageWatch;
using qmrkctl::ProcessStatus;
using testsupport::PageImage;
using testsupport::writeFile;
namespace status = Quillmark_logging::status;

constexpr std::uint32_t watchedProcess = 4711;
constexpr std::uint64_t watchedStart = 12;

// Every test gets an empty /dev/shm with a page of a process in it.
class StatusPageWatch : public ::testing::Test {
 protected:
  void SetUp() override {
    testsupport::mountSharedMemory("");
    ASSERT_EQ(::mkdir(folder().c_str(), 0700), 0);
    ASSERT_EQ(::mkdir((folder() + "/apps").c_str(), 0700), 0);
    write(2, 1);
    ASSERT_EQ(::chmod(path().c_str(), 0600), 0);
  }
  void TearDown() override { testsupport::unmountSharedMemory(); }

  static std::string folder() { return "/dev/shm/qmrk-" + std::to_string(::geteuid()); }
  static std::string path() { return folder() + "/apps/" + std::to_string(watchedProcess); }

  static void write(std::uint64_t _sequence, std::uint64_t _generation, std::uint64_t _start = watchedStart) {
    writeFile(path(), PageImage()
                          .number(status::pid, watchedProcess)
                          .number(status::startTime, _start)
                          .number(status::sequence, _sequence)
                          .number(status::classGeneration, _generation)
                          .bytes());
  }

  static PageWatch watch() {
    ProcessStatus known;
    known.pid = watchedProcess;
    known.startTime = watchedStart;
    return PageWatch({"", ::geteuid()}, known);
  }
};

TEST_F(StatusPageWatch, ReadsAPageOnceForEachWriting) {
  PageWatch page = watch();
  EXPECT_FALSE(page.newStatus());
  write(4, 2);
  const auto status = page.newStatus();
  ASSERT_TRUE(status);
  EXPECT_EQ(status->classes.generation, 2U);
  EXPECT_FALSE(page.newStatus());
  write(8, 3);
  EXPECT_TRUE(page.newStatus());
}

TEST_F(StatusPageWatch, LeavesAPageAloneWhileItIsWritten) {
  PageWatch page = watch();
  write(3, 2);
  EXPECT_FALSE(page.newStatus());
  write(4, 2);
  EXPECT_TRUE(page.newStatus());
}

TEST_F(StatusPageWatch, DoesNotTakeALaterProcessForTheSame) {
  PageWatch page = watch();
  write(4, 2, watchedStart + 1);
  EXPECT_FALSE(page.newStatus());
}

TEST_F(StatusPageWatch, ReadsNothingThatIsNoPage) {
  PageWatch shortened = watch();
  write(4, 2);
  ASSERT_EQ(::truncate(path().c_str(), 100), 0);
  EXPECT_FALSE(shortened.newStatus());
  PageWatch tooShort = watch();
  write(6, 2);
  EXPECT_FALSE(tooShort.newStatus());
  ASSERT_EQ(::unlink(path().c_str()), 0);
  PageWatch missing = watch();
  EXPECT_FALSE(missing.newStatus());
  ASSERT_EQ(::mkfifo(path().c_str(), 0600), 0);
  PageWatch pipe = watch();
  EXPECT_FALSE(pipe.newStatus());
}

}  // namespace
