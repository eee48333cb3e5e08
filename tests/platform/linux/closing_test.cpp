// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>

#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

#include "platform/append_file.h"
#include "platform/linux/file_descriptor.h"
#include "platform/text_file.h"
#include "tests/support/temporary_folder.h"

namespace {

/// Whether the call returns in a thread that is to be cancelled; its destructors could not be unwound.
bool returnsInACancelledThread(const std::function<void()>& _call) {
  bool hasReturned = false;
  std::thread([&] {
    ::pthread_cancel(::pthread_self());
    _call();
    hasReturned = true;
    ::pthread_testcancel();
  }).join();
  return hasReturned;
}

TEST(Closing, ATextFileIsNoCancellationPoint) {
  const testsupport::TemporaryFolder folder;
  std::optional<platform::TextWriter> writer(std::in_place, folder.file("a.txt"), platform::TextWriter::Mode::append);
  std::optional<platform::TextReader> reader(std::in_place, folder.file("a.txt"));
  ASSERT_TRUE(reader->isOpen());
  EXPECT_TRUE(returnsInACancelledThread([&] {
    reader.reset();
    writer.reset();
  }));
}

TEST(Closing, ALogFileIsNoCancellationPoint) {
  const testsupport::TemporaryFolder folder;
  platform::ErrorCode error = platform::noError;
  auto file = platform::AppendFile::open(folder.file("a.log"), false, error);
  ASSERT_NE(file, nullptr);
  EXPECT_TRUE(returnsInACancelledThread([&] { file.reset(); }));
}

TEST(Closing, ADescriptorIsNoCancellationPoint) {
  platform::FileDescriptor file(::open("/dev/null", O_RDONLY | O_CLOEXEC));
  ASSERT_TRUE(file.isOpen());
  EXPECT_TRUE(returnsInACancelledThread([&] { file.reset(); }));
}

}  // namespace
