// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <ctime>
#include <memory>

#include "platform/append_file.h"
#include "platform/linux/file_descriptor.h"
#include "platform/text_file.h"
#include "tests/support/linux/file_size_limit.h"
#include "tests/support/temporary_folder.h"

// The signal of a write beyond the limit ends a process by default, so each test here also shows by its going on that
// no signal came.

namespace {

using platform::AppendFile;
using platform::ErrorCode;
using platform::TextWriter;
using testsupport::FileSizeLimit;
using testsupport::readFile;
using testsupport::TemporaryFolder;

class FileSizeLimitTest : public ::testing::Test {
 protected:
  std::unique_ptr<AppendFile> open() {
    ErrorCode error = platform::noError;
    auto file = AppendFile::open(path_, false, error);
    EXPECT_EQ(error, platform::noError);
    return file;
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.file("limited");
};

TEST_F(FileSizeLimitTest, ShortensAMessageThatFitsInPart) {
  const FileSizeLimit limit(10);
  const auto file = open();
  const AppendFile::Result result = file->append("0123456789abcdef", 16);
  EXPECT_EQ(result.written, 10U);
  EXPECT_EQ(result.error, 112U);
  EXPECT_EQ(readFile(path_), "0123456789");
  EXPECT_FALSE(file->endsInLineFeed());
}

TEST_F(FileSizeLimitTest, FailsAMessageBeyondItAndNotTheProcess) {
  const FileSizeLimit limit(4);
  const auto file = open();
  EXPECT_EQ(file->append("full", 4).error, platform::noError);
  for (int i = 0; i < 3; ++i) {
    const AppendFile::Result result = file->append("x", 1);
    EXPECT_EQ(result.written, 0U);
    EXPECT_EQ(result.error, static_cast<ErrorCode>(EFBIG));
  }
  EXPECT_EQ(readFile(path_), "full");
}

TEST_F(FileSizeLimitTest, LetsMessagesArriveAgainWhenItIsLifted) {
  const auto file = open();
  {
    const FileSizeLimit limit(4);
    EXPECT_TRUE(file->isStillAt(path_));
    EXPECT_EQ(file->append("full", 4).error, platform::noError);
    EXPECT_NE(file->append("lost", 4).error, platform::noError);
  }
  EXPECT_EQ(file->append("+", 1).error, platform::noError);
  EXPECT_EQ(readFile(path_), "full+");
}

TEST_F(FileSizeLimitTest, FailsAMessageAndNotTheProcessRightAfterItIsSet) {
  const auto file = open();
  EXPECT_EQ(file->append("full", 4).error, platform::noError);
  const FileSizeLimit limit(4);
  EXPECT_EQ(file->append("x", 1).error, static_cast<ErrorCode>(EFBIG));
  EXPECT_EQ(file->append("x", 1).error, static_cast<ErrorCode>(EFBIG));
}

/// The signal that ends a forked child which writes beyond a limit by itself; 0 for none.
int endOfAWriterBeyondTheLimit(int _file) {
  const pid_t child = ::fork();
  if (child == 0) {
    const FileSizeLimit limit(0);
    ::_exit(::write(_file, "x", 1) == -1 ? 0 : 1);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

TEST_F(FileSizeLimitTest, EndsTheProcessAtAWriteOfTheApplication) {
  const auto file = open();
  EXPECT_EQ(file->append("x", 1).error, platform::noError);
  const platform::FileDescriptor own(::open((folder_.path() + "/own").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
  EXPECT_EQ(endOfAWriterBeyondTheLimit(own.get()), SIGXFSZ);
}

TEST_F(FileSizeLimitTest, FailsATextBeyondItAndNotTheProcess) {
  const FileSizeLimit limit(6);
  TextWriter writer(path_, TextWriter::Mode::append);
  EXPECT_TRUE(writer.write("four"));
  EXPECT_FALSE(writer.write("four"));
  EXPECT_FALSE(writer.write("x"));
  EXPECT_EQ(readFile(path_), "fourfo");
}

int signalsSeen = 0;
void countSignal(int /*_signal*/) { ++signalsSeen; }

TEST_F(FileSizeLimitTest, LeavesTheHandlerOfTheApplicationAlone) {
  struct sigaction own {};
  struct sigaction former {};
  own.sa_handler = countSignal;
  ASSERT_EQ(::sigaction(SIGXFSZ, &own, &former), 0);
  {
    const FileSizeLimit limit(0);
    EXPECT_NE(open()->append("x", 1).error, platform::noError);
    EXPECT_EQ(signalsSeen, 0);
  }
  ::raise(SIGXFSZ);
  EXPECT_EQ(signalsSeen, 1);
  ::sigaction(SIGXFSZ, &former, nullptr);
}

TEST_F(FileSizeLimitTest, LeavesAPendingSignalPending) {
  sigset_t set;
  sigset_t former;
  sigemptyset(&set);
  sigaddset(&set, SIGXFSZ);
  ASSERT_EQ(::pthread_sigmask(SIG_BLOCK, &set, &former), 0);
  const FileSizeLimit limit(0);
  EXPECT_NE(open()->append("x", 1).error, platform::noError);
  sigset_t pending;
  ::sigpending(&pending);
  EXPECT_EQ(sigismember(&pending, SIGXFSZ), 0) << "the signal of the write was left over";
  ::raise(SIGXFSZ);
  EXPECT_NE(open()->append("x", 1).error, platform::noError);
  ::sigpending(&pending);
  EXPECT_EQ(sigismember(&pending, SIGXFSZ), 1) << "the application's own signal was taken";
  const timespec atOnce{};
  ::sigtimedwait(&set, nullptr, &atOnce);
  ::pthread_sigmask(SIG_SETMASK, &former, nullptr);
}

}  // namespace
