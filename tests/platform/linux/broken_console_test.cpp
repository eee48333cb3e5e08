// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "platform/append_file.h"
#include "platform/console.h"
#include "platform/text_file.h"
#include "tests/support/linux/replaced_stream.h"
#include "tests/support/temporary_folder.h"

namespace {

using testsupport::ReplacedStream;
using testsupport::TemporaryFolder;

TEST(BrokenConsole, DoesNotEndTheProcessWhenNobodyReadsThePipe) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  ::close(ends[0]);
  {
    const ReplacedStream console(STDERR_FILENO, ends[1]);
    platform::writeConsole("nobody reads this\r\n");
  }
  ::close(ends[1]);
}

TEST(BrokenConsole, DoesNotMatterWhenItIsClosed) {
  const ReplacedStream console(STDERR_FILENO, -1);
  platform::writeConsole("there is no console\r\n");
}

TEST(BrokenConsole, LeavesItsDescriptorUnusedWhenItIsClosed) {
  const TemporaryFolder folder;
  testsupport::writeFile(folder.file("text"), "text");
  {
    const ReplacedStream console(STDERR_FILENO, -1);
    platform::ErrorCode error = platform::noError;
    const auto appendFile = platform::AppendFile::open(folder.file("appended"), false, error);
    platform::TextWriter writer(folder.file("written"), platform::TextWriter::Mode::truncate);
    platform::writeConsole("trace\r\n");
    EXPECT_TRUE(writer.write("content"));
    EXPECT_EQ(appendFile->append("message", 7).error, platform::noError);
    platform::writeConsole("trace\r\n");
  }
  EXPECT_EQ(testsupport::readFile(folder.file("written")), "content");
  EXPECT_EQ(testsupport::readFile(folder.file("appended")), "message");
}

}  // namespace
