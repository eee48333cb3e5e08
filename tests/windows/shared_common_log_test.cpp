// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/companion_process.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/text_pattern.h"

namespace {

using testsupport::CompanionProcess;

constexpr int processCount = 4;
constexpr int lineCount = 5000;

class SharedCommonLog : public testing::Test {
 protected:
  SharedCommonLog() {
    sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
    sandbox_.writeCfg("CA12",
                      "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=Shared;\n"
                      "MILLISECOND_RESOLUTION=TRUE\n");
    sandbox_.writeInit("CA12", "Shared;");
  }

  /// Lets the processes write a new log, and looks for the lines of all of them.
  /// @param[out] _turns how often another process than that of the line before has written the next line.
  void write(int& _turns) const {
    testsupport::removeAll(path_);
    std::vector<CompanionProcess> writers;
    for (int writer = 0; writer < processCount; ++writer) {
      writers.emplace_back(std::vector<std::string>{
          QMRK_LOGTEST, "--classes", "Shared.p" + std::to_string(writer) + ";", "--lines", std::to_string(lineCount)});
    }
    for (CompanionProcess& writer : writers) {
      EXPECT_EQ(writer.finish(), 0);
    }
    const testsupport::TextPattern whole(R"(\[Shared\.p(\d)\] \d{8} \d\d:\d\d:\d\d\.\d{3} line (\d+) of 5000\r)");
    std::map<std::string, int> lastLine;
    std::string writer;
    int lines = 0;
    _turns = 0;
    std::istringstream log(testsupport::readFile(path_));
    for (std::string line; std::getline(log, line);) {
      if (line.find("Shared") == std::string::npos) continue;
      std::vector<std::string> parts;
      ASSERT_TRUE(whole.matches(line, parts)) << line;
      // Each process's own lines stay in order, so none is missing when the numbers have no gap.
      ASSERT_EQ(std::stoi(parts[1]), ++lastLine[parts[0]]) << line;
      if (writer != parts[0]) ++_turns;
      writer = parts[0];
      ++lines;
    }
    EXPECT_EQ(lines, processCount * lineCount);
  }

 private:
  const testsupport::ConfigSandbox sandbox_;
  const std::string path_ = sandbox_.logFolder() + "\\common.log";
};

TEST_F(SharedCommonLog, KeepsFiveThousandLinesOfEachOfFourProcesses) {
  constexpr int enoughTurns = 10 * processCount;
  int turns = 0;
  // A busy machine may let one of them write after the other.
  for (int attempt = 0; attempt < 5 && turns <= enoughTurns && !HasFailure(); ++attempt)
    write(turns);
  EXPECT_GT(turns, enoughTurns) << "they wrote one after the other";
}

}  // namespace
