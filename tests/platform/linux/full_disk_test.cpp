// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <string>

#include "platform/append_file.h"
#include "platform/console.h"
#include "platform/text_file.h"
#include "tests/support/linux/shared_memory_mount.h"

// On a file system that is full a file can be opened, but every write fails with ENOSPC.

namespace {

constexpr char fullFolder[] = "\\dev\\shm\\log";

class FullDisk : public ::testing::Test {
 protected:
  FullDisk() {
    testsupport::mountSharedMemory("size=4k");
    std::ofstream("/dev/shm/filler") << std::string(4096, 'x');
  }
  ~FullDisk() override { testsupport::unmountSharedMemory(); }
};

TEST_F(FullDisk, FailsAnAppendedMessage) {
  platform::ErrorCode error = platform::noError;
  const auto file = platform::AppendFile::open(fullFolder, false, error);
  ASSERT_NE(file, nullptr);
  for (int i = 0; i < 3; ++i) {
    const platform::AppendFile::Result result = file->append("message\n", 8);
    EXPECT_EQ(result.written, 0U);
    EXPECT_EQ(result.error, 112U);
  }
  EXPECT_TRUE(file->endsInLineFeed());
  EXPECT_TRUE(file->isStillAt(fullFolder));
}

TEST_F(FullDisk, FailsAWrittenText) {
  platform::TextWriter writer(fullFolder, platform::TextWriter::Mode::append);
  ASSERT_TRUE(writer.isOpen());
  EXPECT_FALSE(writer.write("text"));
  EXPECT_TRUE(writer.write(""));
}

TEST_F(FullDisk, DoesNotMatterToTheConsole) {
  const int former = ::dup(STDERR_FILENO);
  const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
  ASSERT_GE(full, 0);
  ::dup2(full, STDERR_FILENO);
  platform::writeConsole("lost\r\n");
  ::dup2(former, STDERR_FILENO);
  ::close(former);
  ::close(full);
}

}  // namespace
