// SPDX-License-Identifier: MIT
// The rolling appender beside a model of its folder: after every message the two hold the same files.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <random>

#include "logsetup/rolling_file_appender.h"
#include "tests/support/temporary_folder.h"

namespace {

using Folder = std::map<std::string, std::string>;

struct Model {
  Folder files;
  int maxSize;
  int fileCount;

  void write(const std::string& _message) {
    files["log"] += _message;
    if (maxSize == 0 || static_cast<long long>(files["log"].size()) < maxSize) return;
    // No test has backups beyond a hundred.
    for (int i = std::min(fileCount, 100) - 1; i >= 0; --i) {
      auto from = files.extract(i == 0 ? "log" : "log." + std::to_string(i));
      if (from.empty()) continue;
      files["log." + std::to_string(i + 1)] = from.mapped();
    }
    files["log"] = "";
  }
};

Folder contentOf(const testsupport::TemporaryFolder& _folder) {
  Folder content;
  for (const auto& name : testsupport::namesIn(_folder.path())) {
    content[name] = testsupport::readFile(_folder.file(name));
  }
  return content;
}

class Randomness {
 public:
  explicit Randomness(unsigned int _seed) : engine_(_seed) {}
  int number(int _from, int _to) { return std::uniform_int_distribution<int>(_from, _to)(engine_); }
  bool chance(int _percent) { return number(1, 100) <= _percent; }
  // Without line ends, which a text file of Windows would change.
  std::string text(int _largest) {
    std::string text(static_cast<std::size_t>(number(0, _largest)), ' ');
    for (char& character : text) {
      character = static_cast<char>(number('!', '~'));
    }
    return text;
  }

 private:
  std::mt19937 engine_;
};

// What earlier runs left: the file itself, backups with gaps, also beyond the count, and files that only look like one.
Folder leftovers(Randomness& _random) {
  Folder files;
  if (_random.chance(60)) files["log"] = _random.text(60);
  for (int i = 0; i <= 14; ++i) {
    if (_random.chance(35)) files["log." + std::to_string(i)] = "stale " + std::to_string(i);
  }
  if (_random.chance(30)) files["log.01"] = "not a backup";
  if (_random.chance(30)) files["log.1.1"] = "not a backup either";
  return files;
}

// @return a description of the first difference, empty when there is none.
std::string firstDifference(Randomness& _random, int _maxSize, int _fileCount, int _messages, int _largest) {
  const testsupport::TemporaryFolder folder;
  Model model{leftovers(_random), _maxSize, _fileCount};
  for (const auto& [name, bytes] : model.files) {
    testsupport::writeFile(folder.file(name), bytes);
  }
  const bool append = _random.chance(70);
  if (!append) model.files["log"] = "";
  boost::logging::rolling_file_appender appender(folder.file("log"), _maxSize, _fileCount, nullptr, append);
  for (int i = 0; i < _messages; ++i) {
    const std::string message = _random.text(_largest);
    appender("App.info", message);
    model.write(message);
    if (contentOf(folder) != model.files) {
      return "size " + std::to_string(_maxSize) + ", count " + std::to_string(_fileCount) + ", message " +
             std::to_string(i);
    }
  }
  return "";
}

TEST(RollingModel, AgreesWithTheFolderAfterEveryMessage) {
  Randomness random(20261121);
  constexpr std::array<int, 7> sizes{-1, 0, 1, 7, 40, 200, std::numeric_limits<int>::min()};
  for (const int maxSize : sizes) {
    for (int fileCount = -1; fileCount <= 12; ++fileCount) {
      EXPECT_EQ(firstDifference(random, maxSize, fileCount, 40, 50), "");
    }
  }
}

TEST(RollingModel, AgreesAboutCountsForWhichTheFolderIsListed) {
  Randomness random(2);
  for (const int fileCount : {1000, 1001, std::numeric_limits<int>::max()}) {
    for (const int maxSize : {-1, 7, 40})
      EXPECT_EQ(firstDifference(random, maxSize, fileCount, 40, 50), "");
  }
}

TEST(RollingModel, AgreesAboutTheDefaultSize) {
  Randomness random(1024000);
  EXPECT_EQ(firstDifference(random, 1024000 - 1, 5 - 1, 40, 400000), "");
}

}  // namespace
