// SPDX-License-Identifier: MIT
#include "control/listener_trace.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <iostream>
#include <string>

#include "platform/linux/file_descriptor.h"
#include "tests/support/linux/file_size_limit.h"
#include "tests/support/linux/replaced_stream.h"
#include "tests/support/temporary_folder.h"

// The signals of writes that fail end a process by default, so each test here also shows by its going on that none
// came.

namespace {

using Quillmark_logging::writeTraceLine;
using testsupport::ReplacedStream;

class ListenerTrace : public testing::Test {
 protected:
  int openFile() const {
    return ::open((folder_.path() + "/output").c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
  }

  /// Writes a line where all is well again. What the stream still held after the trouble may come first.
  void expectThatTheNextLineIsWritten() const {
    const platform::FileDescriptor file(openFile());
    const ReplacedStream output(STDOUT_FILENO, file.get());
    writeTraceLine(std::cout, "after\n");
    EXPECT_THAT(testsupport::readFile(folder_.file("output")), testing::EndsWith("after\n"));
  }

  testsupport::TemporaryFolder folder_;
};

TEST_F(ListenerTrace, SurvivesAPipeThatNobodyReads) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  ::close(ends[0]);
  const platform::FileDescriptor pipe(ends[1]);
  {
    const ReplacedStream output(STDOUT_FILENO, pipe.get());
    writeTraceLine(std::cout, "nobody reads this\n");
  }
  expectThatTheNextLineIsWritten();
}

TEST_F(ListenerTrace, GoesOnWhenAFullDiskHasRoomAgain) {
  const platform::FileDescriptor full(::open("/dev/full", O_WRONLY | O_CLOEXEC));
  {
    const ReplacedStream output(STDOUT_FILENO, full.get());
    writeTraceLine(std::cout, "lost\n");
  }
  expectThatTheNextLineIsWritten();
}

TEST_F(ListenerTrace, SurvivesAFileSizeLimit) {
  const platform::FileDescriptor file(openFile());
  {
    const ReplacedStream output(STDOUT_FILENO, file.get());
    const testsupport::FileSizeLimit limit(4);
    writeTraceLine(std::cout, "beyond the limit\n");
  }
  expectThatTheNextLineIsWritten();
}

}  // namespace
