// SPDX-License-Identifier: MIT
// A plugin that logs is loaded and unloaded a thousand times.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "tests/stress/linux/scale.h"
#include "tests/support/child_process.h"
#include "tests/support/config_sandbox.h"

namespace {

struct Use {
  int files = 0;
  int threads = 0;
};

// From a line as "5 files, 2 threads".
Use readUse(std::istream& _text) {
  Use use;
  std::string word;
  _text >> use.files >> word >> use.threads >> word;
  return use;
}

class UnloadStorm : public testing::Test {
 protected:
  void run(const std::string& _keys, int _rounds) {
    sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n" + _keys);
    sandbox_.writeCfg("CA12",
                      "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=Stress;\n" + _keys);
    sandbox_.writeInit("CA12", "Stress;");
    const testsupport::ChildResult result =
        testsupport::runProgram(QMRK_PLUGIN_HOST, {QMRK_UNLOADED_PLUGIN, std::to_string(_rounds)});
    ASSERT_EQ(result.exitCode, 0) << result.errors;
    std::istringstream uses(result.output);
    const Use early = readUse(uses);
    const Use late = readUse(uses);
    ASSERT_TRUE(uses) << result.output;
    EXPECT_LE(late.files, early.files);
    EXPECT_LE(late.threads, early.threads);
    const std::string text = testsupport::readFile(sandbox_.logFolder() + "\\common.log");
    std::size_t place = 0;
    for (int round = 1; round <= _rounds; ++round) {
      place = text.find("round " + std::to_string(round) + "\n", place);
      ASSERT_NE(place, std::string::npos) << round;
    }
    stress::report(_rounds, " rounds, no line lost, at the end ", late.files, " files, ", late.threads, " threads");
  }

  const testsupport::ConfigSandbox sandbox_;
};

TEST_F(UnloadStorm, LosesNothingAndLeavesNothing) { run("", 1000); }

TEST_F(UnloadStorm, LosesNothingAndLeavesNothingInThreadSafeMode) {
  // Each round starts a writer thread, which takes 100 ms.
  run("TS_APPENDERS=TRUE\n", stress::scaled(50));
}

}  // namespace
