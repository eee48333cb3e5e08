// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/text_file.h"
#include "tests/support/fault_plan.h"
#include "tests/support/system_path.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::TextReader;

// The files are empty but for their size, so they take no room on the disk.
TEST(TextFileSize, DecidesWhetherAFileIsRead) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("text");
  testsupport::writeFile(path, "");
  std::filesystem::resize_file(testsupport::systemPath(path), platform::largestTextFile);
  std::string text;
  EXPECT_TRUE(TextReader(path).readAll(text));
  EXPECT_EQ(text.size(), static_cast<std::size_t>(platform::largestTextFile));
  EXPECT_FALSE(platform::isTooLargeToRead(path));
  std::filesystem::resize_file(testsupport::systemPath(path), platform::largestTextFile + 1);
  EXPECT_FALSE(TextReader(path).isOpen());
  EXPECT_TRUE(platform::isTooLargeToRead(path));
  EXPECT_FALSE(platform::isTooLargeToRead(folder.file("missing")));
}

TEST(TextFileSize, LimitsAFileThatGrowsWhileItIsRead) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("text");
  testsupport::writeFile(path, "small");
  TextReader reader(path);
  const testsupport::CallHook grow(platform::Call::read, 1, [&path] {
    std::filesystem::resize_file(testsupport::systemPath(path), 2 * platform::largestTextFile);
  });
  std::string text;
  EXPECT_FALSE(reader.readAll(text));
  EXPECT_LT(text.size(), static_cast<std::size_t>(platform::largestTextFile + platform::largestTextFile / 2));
}

TEST(TextFileSize, LimitsAFileThatGrowsWhileItIsReadInPieces) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("text");
  testsupport::writeFile(path, "small");
  TextReader reader(path);
  const testsupport::CallHook grow(platform::Call::read, 1, [&path] {
    std::filesystem::resize_file(testsupport::systemPath(path), 2 * platform::largestTextFile);
  });
  platform::TextPieces pieces;
  EXPECT_FALSE(reader.readAll(pieces));
}

}  // namespace
