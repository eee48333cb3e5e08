// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/platform.h"
#include "tests/support/linux/named_pipe.h"
#include "tests/support/temporary_folder.h"

// What stands in place of a file without being one cannot be opened, and nobody waits for it.

namespace {

using platform::AppendFile;
using platform::ErrorCode;
using platform::TextReader;
using platform::TextWriter;

class Opening : public ::testing::Test {
 protected:
  // Ends the test when it hangs.
  void SetUp() override { ::alarm(60); }
  void TearDown() override { ::alarm(0); }

  static ErrorCode errorOfAppending(const std::string& _path) {
    ErrorCode error = platform::noError;
    EXPECT_EQ(AppendFile::open(_path, false, error), nullptr);
    ErrorCode errorOfTruncating = platform::noError;
    EXPECT_EQ(AppendFile::open(_path, true, errorOfTruncating), nullptr);
    EXPECT_EQ(errorOfTruncating, error);
    return error;
  }

  static void expectRefused(const std::string& _path) {
    EXPECT_FALSE(TextReader(_path).isOpen());
    EXPECT_FALSE(TextWriter(_path, TextWriter::Mode::truncate).isOpen());
    EXPECT_FALSE(TextWriter(_path, TextWriter::Mode::append).isOpen());
    EXPECT_NE(errorOfAppending(_path), platform::noError);
  }

  const testsupport::TemporaryFolder folder_;
  const std::string path_ = folder_.file("file");
};

TEST_F(Opening, RefusesAPipe) {
  testsupport::makeNamedPipe(path_);
  expectRefused(path_);
}

TEST_F(Opening, RefusesAPipeThatSomebodyReads) {
  testsupport::makeNamedPipe(path_);
  const int reader = ::open(platform::nativePath(path_).c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_NE(reader, -1);
  expectRefused(path_);
  EXPECT_EQ(errorOfAppending(path_), platform::errorAccessDenied);
  ::close(reader);
}

TEST_F(Opening, RefusesASocket) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  platform::nativePath(path_).copy(address.sun_path, sizeof address.sun_path - 1);
  const int server = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_EQ(::bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  expectRefused(path_);
  ::close(server);
}

TEST_F(Opening, RefusesADevice) {
  expectRefused("\\dev\\null");
  expectRefused("\\dev\\zero");
  EXPECT_EQ(errorOfAppending("\\dev\\null"), platform::errorAccessDenied);
}

TEST_F(Opening, RefusesALinkToADevice) {
  std::filesystem::create_symlink("/dev/zero", platform::nativePath(path_));
  expectRefused(path_);
}

TEST_F(Opening, RefusesAPseudoTerminal) {
  const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  ASSERT_NE(terminal, -1);
  ASSERT_EQ(::grantpt(terminal), 0);
  ASSERT_EQ(::unlockpt(terminal), 0);
  expectRefused(::ptsname(terminal));
  ::close(terminal);
}

}  // namespace
