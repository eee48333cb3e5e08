// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/running_system.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr char staticMade[] = "first made\nsecond made\n";
constexpr char staticDestroyed[] = "second destroyed\nfirst destroyed\n";

class LoggingProcess : public testing::Test {
 protected:
  int run(const std::vector<std::string>& _arguments) const {
    std::vector<std::string> arguments{_arguments[0], path_};
    arguments.insert(arguments.end(), _arguments.begin() + 1, _arguments.end());
    return testsupport::runProgram(LOGGING_APPLICATION, arguments).exitCode;
  }

  std::string text() const { return testsupport::replaced(testsupport::readFile(path_), "\r\n", "\n"); }

  static std::string numbers(int _count) {
    std::string lines;
    for (int i = 0; i < _count; ++i)
      lines += std::to_string(i) + "\n";
    return lines;
  }

  testsupport::TemporaryFolder folder_;
  const std::string path_ = folder_.file("app.log");
};

TEST_F(LoggingProcess, KeepsTheOrderOfStaticObjectsMainAndTheSetUp) {
  EXPECT_EQ(run({"plain"}), 0);
  EXPECT_EQ(text(), std::string(staticMade) + "before set-up\nafter set-up\n" + staticDestroyed);
}

TEST_F(LoggingProcess, LosesNoMessageThatTheSetUpInterrupts) {
  EXPECT_EQ(run({"within"}), 0);
  EXPECT_EQ(text(), std::string(staticMade) + "set up: 1\n" + staticDestroyed);
}

TEST_F(LoggingProcess, LosesNothingAtItsEndInThreadSafeMode) {
  EXPECT_EQ(run({"ts", "5000", "0"}), 0);
  EXPECT_EQ(text(), staticMade + numbers(5000) + staticDestroyed);
}

TEST_F(LoggingProcess, LosesNothingWhenItCallsExitInThreadSafeMode) {
  EXPECT_EQ(run({"ts-exit", "5000", "0"}), 7);
  EXPECT_EQ(text(), staticMade + numbers(5000) + staticDestroyed);
}

TEST_F(LoggingProcess, LosesOnlyWhatAnAppenderThatCallsExitHolds) {
  EXPECT_EQ(run({"exit-inside", "5000"}), 9);
  EXPECT_EQ(text(), staticMade + numbers(5000) + staticDestroyed);
}

TEST_F(LoggingProcess, EndsEvenIfAnAppenderCallsExitWithALockHeld) {
  EXPECT_EQ(run({"exit-locked"}), 9);
  EXPECT_EQ(text().substr(0, text().find("last")), staticMade);
}

TEST_F(LoggingProcess, LosesNothingWhenItEndsInsideItsOwnAppender) {
  EXPECT_EQ(run({"in-appender"}), 0);
  EXPECT_EQ(text(), staticMade + numbers(100) + staticDestroyed);
}

// What waits for the hour that is asked for here runs into the time-out of the test.
TEST_F(LoggingProcess, DoesNotWaitForALongIntervalAtItsEnd) {
  EXPECT_EQ(run({"ts", "1000", "3600000"}), 0);
  EXPECT_EQ(text(), staticMade + numbers(1000) + staticDestroyed);
}

TEST_F(LoggingProcess, EndsEvenIfAnAppenderNeverReturns) { EXPECT_EQ(run({"stuck"}), 0); }

TEST_F(LoggingProcess, SharesOneFileWithFifteenOthersLineByLine) {
  if (testsupport::cannotRunUnderWine(
          "its append is not atomic, and with sixteen writers on a busy machine one may wait "
          "for the lock longer than 50 ms")) {
    return;
  }
  constexpr int processCount = 16;
  constexpr int lineCount = 20000;
  std::vector<std::thread> runners;
  for (int i = 0; i < processCount; ++i) {
    runners.emplace_back([this, i] { EXPECT_EQ(run({"append", std::to_string(i), std::to_string(lineCount)}), 0); });
  }
  for (std::thread& runner : runners)
    runner.join();
  std::map<std::string, int> nextLine;
  std::istringstream lines(text());
  std::string line;
  int count = 0;
  while (std::getline(lines, line)) {
    if (line == "first made" || line == "second made") continue;
    ++count;
    const std::string::size_type number = line.rfind(' ') + 1;
    const std::string prefix = line.substr(0, number);
    ASSERT_EQ(line.substr(number), std::to_string(nextLine[prefix]++)) << line;
  }
  EXPECT_EQ(count, processCount * lineCount);
  EXPECT_EQ(nextLine.size(), 16U);
}

}  // namespace
