// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/config_sandbox.h"

namespace testsupport {

/// A sandbox with the configuration of CA12, in which LogTest runs.
class LogTestRun : public testing::Test {
 protected:
  LogTestRun() { sandbox_.writeDemoOfCa12("LOG_STATE=TRUE\n"); }

  /// What LogTest does.
  static ChildResult run(const std::vector<std::string>& _arguments) { return runProgram(QMRK_LOGTEST, _arguments); }

  std::string commonLog() const { return sandbox_.appData() + "\\Logs\\Common\\common.log"; }

  ConfigSandbox sandbox_;
};

}  // namespace testsupport
