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
  LogTestRun() {
    sandbox_.writeInit("CA12", "Demo.App;\nDemo.Net.error;\n");
    writeCa12("LOG_STATE=TRUE\n");
  }

  /// The configuration of CA12, with these keys besides.
  void writeCa12(const std::string& _keys) const {
    sandbox_.writeCfg("CA12", "CA_NR=CA12\n" + _keys +
                                  "COMMON_LOG_FILE_NAME=common.log\n"
                                  "COMMON_LOG_FILE_ROOT=Logs\\Common\n"
                                  "COMMON_LOG_FILE_FILTER=Demo.App;Demo.Net;Demo.Disk\n");
  }

  /// What LogTest does, with line ends of LF in its output.
  static ChildResult run(const std::vector<std::string>& _arguments) {
    ChildResult result = runProgram(QMRK_LOGTEST, _arguments);
    result.output = replaced(result.output, "\r\n", "\n");
    return result;
  }

  std::string commonLog() const { return sandbox_.appData() + "\\Logs\\Common\\common.log"; }

  ConfigSandbox sandbox_;
};

}  // namespace testsupport
