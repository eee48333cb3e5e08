// SPDX-License-Identifier: MIT
#include "platform/append_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <sstream>
#include <thread>
#include <vector>

#include "platform/native_path.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/fault_plan.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::AppendFile;
using platform::Call;
using platform::ErrorCode;
using testsupport::FaultPlan;
using testsupport::readFile;
using testsupport::TemporaryFolder;
using testsupport::writeFile;

class AppendFileTest : public ::testing::Test {
 protected:
  std::unique_ptr<AppendFile> open(const std::string& _path, bool _truncate = false) {
    error_ = platform::noError;
    return AppendFile::open(_path, _truncate, error_);
  }

  static bool append(AppendFile& _file, const std::string& _text) {
    const AppendFile::Result result = _file.append(_text.data(), _text.size());
    EXPECT_EQ(result.written == _text.size(), result.error == platform::noError);
    return result.error == platform::noError;
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.file("app.log");
  ErrorCode error_ = platform::noError;
};

TEST_F(AppendFileTest, CreatesAMissingFile) {
  const auto file = open(path_);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(readFile(path_), "");
}

TEST_F(AppendFileTest, CreatesTheMissingFoldersOfAFile) {
  const auto file = open(folder_.file("a\\b/c\\\\d\\app.log"));
  ASSERT_NE(file, nullptr);
  EXPECT_TRUE(testsupport::exists(folder_.file("a\\b\\c\\d\\app.log")));
}

TEST_F(AppendFileTest, AppendsTheBytesWithTheLineEndsOfTheSystem) {
  writeFile(path_, "before\n");
  const auto file = open(path_);
  ASSERT_NE(file, nullptr);
  EXPECT_TRUE(append(*file, "one\r\ntwo\n"));
  EXPECT_TRUE(append(*file, std::string("\0\xFF", 2)));
  EXPECT_EQ(readFile(path_), "before\n" + testsupport::nativeLineEnds("one\r\ntwo\n") + std::string("\0\xFF", 2));
}

TEST_F(AppendFileTest, EmptiesAnExistingFileOnRequestOnly) {
  writeFile(path_, "former");
  ASSERT_NE(open(path_, false), nullptr);
  EXPECT_EQ(readFile(path_), "former");
  ASSERT_NE(open(path_, true), nullptr);
  EXPECT_EQ(readFile(path_), "");
}

TEST_F(AppendFileTest, AppendsAfterWhatAnotherOpenFileAppended) {
  const auto one = open(path_);
  const auto two = open(path_);
  EXPECT_TRUE(append(*one, "one "));
  EXPECT_TRUE(append(*two, "two "));
  EXPECT_TRUE(append(*one, "three"));
  EXPECT_EQ(readFile(path_), "one two three");
}

TEST_F(AppendFileTest, AppendsAtTheNewEndAfterAnotherEmptiesTheFile) {
  const auto file = open(path_);
  EXPECT_TRUE(append(*file, "a long line that is thrown away"));
  ASSERT_NE(open(path_, true), nullptr);
  EXPECT_TRUE(append(*file, "new"));
  EXPECT_EQ(readFile(path_), "new");
}

TEST_F(AppendFileTest, MakesNoCallForAnEmptyMessage) {
  const auto file = open(path_);
  const FaultPlan plan(Call::append, 1, platform::errorDiskFull);
  const AppendFile::Result result = file->append("", 0);
  EXPECT_EQ(result.written, 0U);
  EXPECT_EQ(result.error, platform::noError);
  EXPECT_EQ(plan.calls(), 0);
}

TEST_F(AppendFileTest, NeitherLosesNorTearsMessagesOfSeveralThreads) {
  constexpr int numberOfThreads = 4;
  constexpr int linesPerThread = 500;
  const auto file = open(path_);
  std::vector<std::thread> threads;
  threads.reserve(numberOfThreads);
  for (int t = 0; t < numberOfThreads; ++t) {
    threads.emplace_back([&file, t] {
      const std::string line = std::string(100 + 40 * static_cast<std::size_t>(t), static_cast<char>('a' + t)) + "\n";
      for (int i = 0; i < linesPerThread; ++i) {
        file->append(line.data(), line.size());
      }
    });
  }
  for (auto& thread : threads) {
    thread.join();
  }
  std::vector<int> counts(numberOfThreads, 0);
  std::istringstream text(readFile(path_));
  for (std::string line; std::getline(text, line);) {
    const int t = line.empty() ? -1 : line[0] - 'a';
    ASSERT_TRUE(t >= 0 && t < numberOfThreads) << line;
    ASSERT_EQ(line + "\n",
              testsupport::nativeLineEnds(std::string(100 + 40 * static_cast<std::size_t>(t), line[0]) + "\n"));
    ++counts[static_cast<std::size_t>(t)];
  }
  EXPECT_EQ(counts, std::vector<int>(numberOfThreads, linesPerThread));
}

TEST_F(AppendFileTest, DoesNotOpenAFolder) { EXPECT_EQ(open(folder_.path()), nullptr); }

TEST_F(AppendFileTest, ReportsPathNotFoundForAnEmptyPath) {
  EXPECT_EQ(open(""), nullptr);
  EXPECT_EQ(error_, platform::errorPathNotFound);
}

TEST_F(AppendFileTest, DoesNotOpenBelowAFile) {
  writeFile(folder_.file("file"), "");
  EXPECT_EQ(open(folder_.file("file\\app.log")), nullptr);
  EXPECT_NE(error_, platform::noError);
}

TEST_F(AppendFileTest, OpensANameOutsideAscii) {
  const std::string path = folder_.file("\xC3\xA6\\\xC3\xB8.log");
  const auto file = open(path);
  ASSERT_NE(file, nullptr);
  EXPECT_TRUE(append(*file, "text"));
  EXPECT_EQ(readFile(path), "text");
}

TEST_F(AppendFileTest, ReportsAccessDeniedForAReadOnlyFile) {
  writeFile(path_, "kept");
  testsupport::denyWriting(path_);
  const testsupport::AsUnprivilegedUser user;
  EXPECT_EQ(open(path_, true), nullptr);
  EXPECT_EQ(error_, platform::errorAccessDenied);
  EXPECT_EQ(readFile(path_), "kept");
}

TEST_F(AppendFileTest, KnowsWhetherTheFileEndsWithALineFeed) {
  EXPECT_TRUE(open(path_)->endsInLineFeed());
  writeFile(path_, "line\n");
  EXPECT_TRUE(open(path_)->endsInLineFeed());
  writeFile(path_, "line\nfragm");
  EXPECT_FALSE(open(path_)->endsInLineFeed());
  writeFile(path_, "\n\r");
  EXPECT_FALSE(open(path_)->endsInLineFeed());
}

TEST_F(AppendFileTest, SeesTheEndThatOthersAppended) {
  const auto one = open(path_);
  const auto two = open(path_);
  EXPECT_TRUE(append(*two, "fragm"));
  EXPECT_FALSE(one->endsInLineFeed());
  EXPECT_TRUE(append(*one, "\n"));
  EXPECT_TRUE(two->endsInLineFeed());
}

TEST_F(AppendFileTest, NeverMistakesAMessageInTheMakingForAFragment) {
  const auto writing = open(path_);
  const auto looking = open(path_);
  std::atomic<bool> isDone{false};
  std::thread writer([&writing, &isDone] {
    // Over page boundaries, as the system lets a file grow page by page.
    const std::string message = std::string(9999, 'x') + "\n";
    for (int i = 0; i < 4000; ++i) {
      writing->append(message.data(), message.size());
    }
    isDone = true;
  });
  int pieces = 0;
  while (!isDone) {
    if (!looking->endsInLineFeed()) ++pieces;
  }
  writer.join();
  EXPECT_EQ(pieces, 0);
}

TEST_F(AppendFileTest, IdentifiesTheFileNotItsName) {
  const auto one = open(path_);
  const auto same = open(folder_.file("./app.log"));
  const auto other = open(folder_.file("other.log"));
  EXPECT_TRUE(one->identity() == same->identity());
  EXPECT_FALSE(one->identity() == other->identity());
}

TEST_F(AppendFileTest, StaysAtItsPathUntilItIsRemoved) {
  const auto file = open(path_);
  EXPECT_TRUE(file->isStillAt(path_));
  testsupport::removeAll(path_);
  EXPECT_FALSE(file->isStillAt(path_));
  EXPECT_TRUE(append(*file, "goes to the removed file"));
}

TEST_F(AppendFileTest, LeavesItsPathWhenItIsRenamed) {
  const auto file = open(path_);
  std::filesystem::rename(platform::nativePath(path_), platform::nativePath(folder_.file("moved.log")));
  EXPECT_FALSE(file->isStillAt(path_));
  EXPECT_TRUE(file->isStillAt(folder_.file("moved.log")));
}

TEST_F(AppendFileTest, LeavesItsPathToAnotherFile) {
  const auto file = open(path_);
  std::filesystem::rename(platform::nativePath(path_), platform::nativePath(folder_.file("moved.log")));
  writeFile(path_, "");
  EXPECT_FALSE(file->isStillAt(path_));
}

TEST_F(AppendFileTest, FailsToOpenAsPlannedAndCreatesNothing) {
  const FaultPlan plan(Call::openForAppending, 2, platform::errorDiskFull);
  EXPECT_NE(open(folder_.file("one")), nullptr);
  EXPECT_EQ(open(folder_.file("two")), nullptr);
  EXPECT_EQ(error_, platform::errorDiskFull);
  EXPECT_FALSE(testsupport::exists(folder_.file("two")));
  EXPECT_NE(open(folder_.file("three")), nullptr);
}

TEST_F(AppendFileTest, LosesAMessageAsPlannedAndWritesTheNext) {
  const auto file = open(path_);
  const FaultPlan plan(Call::append, 2, platform::errorDiskFull);
  EXPECT_TRUE(append(*file, "one "));
  const AppendFile::Result result = file->append("two ", 4);
  EXPECT_EQ(result.written, 0U);
  EXPECT_EQ(result.error, platform::errorDiskFull);
  EXPECT_TRUE(append(*file, "three"));
  EXPECT_EQ(readFile(path_), "one three");
}

TEST_F(AppendFileTest, AssumesThatAllIsWellWhenItCannotKnow) {
  writeFile(path_, "fragm");
  const auto file = open(path_);
  const FaultPlan reading(Call::read, 1, platform::errorAccessDenied);
  const FaultPlan status(Call::statusQuery, 1, platform::errorAccessDenied);
  EXPECT_TRUE(file->endsInLineFeed());
  EXPECT_FALSE(file->endsInLineFeed());
  EXPECT_TRUE(file->isStillAt(folder_.file("elsewhere")));
  EXPECT_FALSE(file->isStillAt(folder_.file("elsewhere")));
}

TEST_F(AppendFileTest, ClosesEveryFile) {
  const FaultPlan plan(Call::closeFile, 100, platform::errorInvalidHandle);
  { const auto file = open(path_); }
  EXPECT_EQ(plan.calls(), 1);
  EXPECT_EQ(open(folder_.path()), nullptr);
  EXPECT_EQ(plan.calls(), 1);
}

}  // namespace
