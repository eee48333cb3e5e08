// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <vector>

#include "tests/support/companion_process.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/text_pattern.h"

namespace {

using testsupport::CompanionProcess;

constexpr int processCount = 4;
constexpr int lineCount = 5000;

TEST(SharedCommonLog, KeepsFiveThousandLinesOfEachOfFourProcesses) {
  const testsupport::ConfigSandbox sandbox;
  sandbox.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  sandbox.writeCfg("CA12",
                   "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=Shared;\n"
                   "MILLISECOND_RESOLUTION=TRUE\n");
  sandbox.writeInit("CA12", "Shared;");
  std::vector<CompanionProcess> writers;
  for (int writer = 0; writer < processCount; ++writer) {
    writers.emplace_back(std::vector<std::string>{QMRK_LOGTEST, "--classes", "Shared.p" + std::to_string(writer) + ";",
                                                  "--lines", std::to_string(lineCount)});
  }
  for (CompanionProcess& writer : writers) {
    EXPECT_EQ(writer.finish(), 0);
  }
  const testsupport::TextPattern whole(R"(\[Shared\.p(\d)\] \d{8} \d\d:\d\d:\d\d\.\d{3} line (\d+) of 5000\r)");
  std::map<std::string, int> lastLine;
  std::string writer;
  int changesOfWriter = 0;
  int lines = 0;
  std::istringstream log(testsupport::readFile(sandbox.logFolder() + "\\common.log"));
  for (std::string line; std::getline(log, line);) {
    if (line.find("Shared") == std::string::npos) continue;
    std::vector<std::string> parts;
    ASSERT_TRUE(whole.matches(line, parts)) << line;
    // Each process's own lines stay in order, so none is missing when the numbers have no gap.
    ASSERT_EQ(std::stoi(parts[1]), ++lastLine[parts[0]]) << line;
    if (writer != parts[0]) ++changesOfWriter;
    writer = parts[0];
    ++lines;
  }
  EXPECT_EQ(lines, processCount * lineCount);
  EXPECT_GT(changesOfWriter, 10 * processCount) << "they wrote one after the other";
}

}  // namespace
