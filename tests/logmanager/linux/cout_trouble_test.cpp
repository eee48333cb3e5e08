// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <iostream>
#include <string>

#include "boost/logging/logging.hpp"
#include "platform/linux/file_descriptor.h"
#include "tests/support/linux/file_size_limit.h"
#include "tests/support/linux/replaced_stream.h"
#include "tests/support/temporary_folder.h"

// The signals of writes that fail end a process by default, so each test here also shows by its going on that none
// came.

namespace {

using boost::logging::write_to_cout;
using testsupport::readFile;
using testsupport::ReplacedStream;

class CoutTrouble : public testing::Test {
 protected:
  /// The file that the standard output leads to when all is well again.
  int openFile() const {
    return ::open((folder_.path() + "/output").c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
  }

  /// What the stream still held after the trouble may come first.
  void expectTheLastLine(const std::string& _line) const {
    EXPECT_THAT(readFile(folder_.file("output")), testing::EndsWith(_line));
  }

  testsupport::TemporaryFolder folder_;
};

TEST_F(CoutTrouble, APipeThatNobodyReadsEndsNeitherTheProcessNorTheOutput) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  ::close(ends[0]);
  const platform::FileDescriptor pipe(ends[1]);
  {
    const ReplacedStream output(STDOUT_FILENO, pipe.get());
    write_to_cout("App", "nobody reads this\n");
  }
  const platform::FileDescriptor file(openFile());
  const ReplacedStream output(STDOUT_FILENO, file.get());
  write_to_cout("App", "after\n");
  expectTheLastLine("after\n");
}

TEST_F(CoutTrouble, AFullDiskIsWrittenToAgainWhenThereIsRoom) {
  const platform::FileDescriptor full(::open("/dev/full", O_WRONLY | O_CLOEXEC));
  {
    const ReplacedStream output(STDOUT_FILENO, full.get());
    write_to_cout("App", "lost\n");
    write_to_cout("App", "lost\n");
  }
  const platform::FileDescriptor file(openFile());
  const ReplacedStream output(STDOUT_FILENO, file.get());
  write_to_cout("App", "after\n");
  expectTheLastLine("after\n");
}

TEST_F(CoutTrouble, AFileSizeLimitDoesNotEndTheProcess) {
  const platform::FileDescriptor file(openFile());
  const ReplacedStream output(STDOUT_FILENO, file.get());
  {
    const testsupport::FileSizeLimit limit(4);
    write_to_cout("App", "beyond the limit\n");
    write_to_cout("App", "beyond the limit\n");
  }
  write_to_cout("App", "after\n");
  expectTheLastLine("after\n");
}

TEST_F(CoutTrouble, AStreamThatThrowsEndsNeitherTheProcessNorTheOutput) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  ::close(ends[0]);
  const platform::FileDescriptor pipe(ends[1]);
  std::cout.exceptions(std::ios_base::badbit);
  {
    const ReplacedStream output(STDOUT_FILENO, pipe.get());
    EXPECT_THROW(write_to_cout("App", "nobody reads this\n"), std::ios_base::failure);
  }
  const platform::FileDescriptor file(openFile());
  const ReplacedStream output(STDOUT_FILENO, file.get());
  write_to_cout("App", "after\n");
  std::cout.exceptions(std::ios_base::goodbit);
  expectTheLastLine("after\n");
}

}  // namespace
