// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "platform/append_file.h"
#include "platform/text_file.h"
#include "tests/support/temporary_folder.h"

namespace {

// What another program, started by this process, sees among its open files.
std::string openFilesOfAChild() {
  std::FILE* const pipe = ::popen("ls -l /proc/self/fd", "r");
  std::string output;
  for (int c = 0; pipe != nullptr && (c = std::fgetc(pipe)) != EOF;) {
    output += static_cast<char>(c);
  }
  EXPECT_EQ(::pclose(pipe), 0);
  return output;
}

TEST(Inheritance, PassesNoFileToChildProcesses) {
  const testsupport::TemporaryFolder folder;
  testsupport::writeFile(folder.file("read"), "text");
  platform::ErrorCode error = platform::noError;
  const auto appendFile = platform::AppendFile::open(folder.file("appended"), false, error);
  const platform::TextReader reader(folder.file("read"));
  const platform::TextWriter writer(folder.file("written"), platform::TextWriter::Mode::append);
  ASSERT_TRUE(appendFile != nullptr && reader.isOpen() && writer.isOpen());
  const std::string files = openFilesOfAChild();
  EXPECT_NE(files.find("/proc/"), std::string::npos) << files;
  EXPECT_EQ(files.find(folder.path()), std::string::npos) << files;
}

TEST(Inheritance, LeavesNoDescriptorOfAClosedFile) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("file");
  for (int i = 0; i < 5000; ++i) {
    platform::ErrorCode error = platform::noError;
    ASSERT_NE(platform::AppendFile::open(path, false, error), nullptr) << error;
    ASSERT_TRUE(platform::TextReader(path).isOpen());
    ASSERT_TRUE(platform::TextWriter(path, platform::TextWriter::Mode::append).isOpen());
    ASSERT_FALSE(platform::TextReader(folder.path()).isOpen());
    ASSERT_EQ(platform::AppendFile::open(folder.path(), false, error), nullptr);
  }
}

}  // namespace
