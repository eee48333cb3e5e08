// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>

#include "platform/append_file.h"
#include "platform/native_path.h"
#include "tests/support/fault_plan.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::AppendFile;
using platform::Call;
using testsupport::FaultPlan;
using testsupport::readFile;

class ReopenedFileTest : public ::testing::Test {
 protected:
  std::unique_ptr<AppendFile> open() const {
    platform::ErrorCode error = platform::noError;
    return AppendFile::open(path_, false, error);
  }

  static bool append(AppendFile& _file, const std::string& _text) {
    return _file.append(_text.data(), _text.size()).error == platform::noError;
  }

  testsupport::TemporaryFolder folder_;
  std::string path_ = folder_.file("app.log");
};

TEST_F(ReopenedFileTest, ReopensARenamedFileAtItsPath) {
  const auto file = open();
  EXPECT_TRUE(append(*file, "1\n"));
  std::filesystem::rename(platform::nativePath(path_), platform::nativePath(folder_.file("moved.log")));
  EXPECT_EQ(file->reopen(path_, false), platform::noError);
  EXPECT_TRUE(file->isStillAt(path_));
  EXPECT_TRUE(append(*file, "2\n"));
  EXPECT_EQ(readFile(folder_.file("moved.log")), testsupport::nativeLineEnds("1\n"));
  EXPECT_EQ(readFile(path_), testsupport::nativeLineEnds("2\n"));
}

TEST_F(ReopenedFileTest, ReportsWhyItCannotReopenAndRetries) {
  const auto file = open();
  const FaultPlan plan(Call::openForAppending, 1, platform::errorDiskFull);
  EXPECT_EQ(file->reopen(path_, false), platform::errorDiskFull);
  EXPECT_EQ(file->reopen(path_, true), platform::noError);
  EXPECT_TRUE(append(*file, "1"));
  EXPECT_EQ(readFile(path_), "1");
}

TEST_F(ReopenedFileTest, KeepsMessagesWholeThatAreAppendedMeanwhile) {
  constexpr int messageCount = 5000;
  const auto file = open();
  std::atomic<bool> isDone{false};
  std::thread writer([&file, &isDone] {
    for (int i = 0; i < messageCount; ++i)
      EXPECT_TRUE(append(*file, "0123456789\n"));
    isDone = true;
  });
  int fileCount = 0;
  while (!isDone && fileCount < 100) {
    std::filesystem::rename(platform::nativePath(path_),
                            platform::nativePath(folder_.file(std::to_string(fileCount++))));
    EXPECT_EQ(file->reopen(path_, false), platform::noError);
  }
  writer.join();
  std::string all = readFile(path_);
  for (int i = 0; i < fileCount; ++i)
    all += readFile(folder_.file(std::to_string(i)));
  const std::string line = testsupport::nativeLineEnds("0123456789\n");
  EXPECT_EQ(all.size(), messageCount * line.size());
  EXPECT_EQ(testsupport::replaced(all, line, ""), "");
}

}  // namespace
