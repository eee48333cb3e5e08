// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/syscall.h>

#include <algorithm>

#include "platform/append_file.h"
#include "platform/clock.h"
#include "platform/console.h"
#include "platform/text_file.h"
#include "tests/support/captured_console.h"
#include "tests/support/linux/file_size_limit.h"
#include "tests/support/linux/system_calls.h"
#include "tests/support/temporary_folder.h"

namespace {

using testsupport::systemCallsOf;
using testsupport::TemporaryFolder;

std::ptrdiff_t writesIn(const std::vector<long>& _calls) { return std::count(_calls.begin(), _calls.end(), SYS_write); }

TEST(SystemCallCount, IsOneWriteForAnAppendedMessage) {
  const TemporaryFolder folder;
  platform::ErrorCode error = platform::noError;
  const auto file = platform::AppendFile::open(folder.file("app.log"), false, error);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(systemCallsOf([&file] {
              file->append("one\n", 4);
              file->append("two\n", 4);
            }),
            std::vector<long>(2, SYS_write));
  EXPECT_EQ(testsupport::readFile(folder.file("app.log")), "one\ntwo\n");
}

TEST(SystemCallCount, IsOneWriteForAMessageUnderAFileSizeLimit) {
  const TemporaryFolder folder;
  const testsupport::FileSizeLimit limit(1 << 20);
  platform::ErrorCode error = platform::noError;
  const auto file = platform::AppendFile::open(folder.file("app.log"), false, error);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(writesIn(systemCallsOf([&file] { file->append("one\n", 4); })), 1);
}

TEST(SystemCallCount, IsOneWriteForAText) {
  const TemporaryFolder folder;
  platform::TextWriter writer(folder.file("text"), platform::TextWriter::Mode::append);
  EXPECT_EQ(systemCallsOf([&writer] { writer.write("a record\n"); }), std::vector<long>{SYS_write});
}

TEST(SystemCallCount, IsOneWriteForATraceLine) {
  const testsupport::CapturedConsole console;
  EXPECT_EQ(writesIn(systemCallsOf([] { platform::writeConsole("==> one line\r\n"); })), 1);
  EXPECT_EQ(console.text(), "==> one line\r\n");
}

TEST(SystemCallCount, IsZeroForTheTimeOfAMessage) {
  platform::localTime();
  EXPECT_EQ(systemCallsOf([] {
              platform::localTime();
              platform::steadyMilliseconds();
            }),
            std::vector<long>());
}

}  // namespace
