// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/file_bytes.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "platform/native_path.h"
#include "platform/text_file.h"
#include "tests/support/linux/named_pipe.h"
#include "tests/support/temporary_folder.h"

namespace {

using qmrkctl::bytesOfFile;

class FileBytes : public ::testing::Test {
 protected:
  // Ends the test when it hangs.
  void SetUp() override { ::alarm(60); }
  void TearDown() override { ::alarm(0); }

  const testsupport::TemporaryFolder folder_;
  const std::string path_ = folder_.file("list");
};

TEST_F(FileBytes, StayAsTheyAre) {
  const std::string bytes = std::string("A;\r\nB;\0\n", 8) + std::string(200'000, 'x');
  testsupport::writeFile(path_, bytes);
  EXPECT_EQ(bytesOfFile(path_), bytes);
  testsupport::writeFile(path_, "");
  EXPECT_EQ(bytesOfFile(path_), "");
}

TEST_F(FileBytes, ComeFromRegularFilesOnly) {
  EXPECT_FALSE(bytesOfFile(path_));
  EXPECT_FALSE(bytesOfFile(folder_.path()));
  EXPECT_FALSE(bytesOfFile("/dev/zero"));
  testsupport::makeNamedPipe(path_);
  EXPECT_FALSE(bytesOfFile(path_));
}

TEST_F(FileBytes, EndWhereTheLibraryReadsNoFurther) {
  testsupport::writeFile(path_, "A;");
  std::filesystem::resize_file(platform::nativePath(path_), platform::largestTextFile);
  EXPECT_TRUE(bytesOfFile(path_));
  std::filesystem::resize_file(platform::nativePath(path_), platform::largestTextFile + 1);
  EXPECT_FALSE(bytesOfFile(path_));
}

}  // namespace
