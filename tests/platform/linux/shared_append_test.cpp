// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <sstream>
#include <vector>

#include "platform/append_file.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr int processCount = 8;
constexpr int lineCount = 1000;

// Lines of up to 9 kB, which do not fit into a page.
std::string lineOf(int _process) {
  return std::string(10 + static_cast<std::size_t>(_process) * 1280, static_cast<char>('a' + _process));
}

[[noreturn]] void appendLines(const std::string& _path, int _process) {
  platform::ErrorCode error = platform::noError;
  const auto file = platform::AppendFile::open(_path, false, error);
  const std::string line = lineOf(_process) + "\n";
  for (int i = 0; i < lineCount; ++i) {
    if (file == nullptr || file->append(line.data(), line.size()).error != platform::noError) ::_exit(1);
  }
  ::_exit(0);
}

TEST(SharedAppend, NeitherLosesNorTearsLinesOfSeveralProcesses) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("made by the first\\shared.log");
  std::vector<pid_t> children;
  for (int p = 0; p < processCount; ++p) {
    const pid_t child = ::fork();
    if (child == 0) appendLines(path, p);
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  std::vector<int> counts(processCount, 0);
  std::istringstream text(testsupport::readFile(path));
  for (std::string line; std::getline(text, line);) {
    const int p = line.empty() ? -1 : line[0] - 'a';
    ASSERT_TRUE(p >= 0 && p < processCount);
    ASSERT_EQ(line, lineOf(p));
    ++counts[static_cast<std::size_t>(p)];
  }
  EXPECT_EQ(counts, std::vector<int>(processCount, lineCount));
}

}  // namespace
