// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/config_sandbox.h"

namespace testsupport {

/// A sandbox with the configuration of CA12, to which "GE" redirects, in which qmrkctl and LogTest run.
class QmrkctlRun : public testing::Test {
 protected:
  QmrkctlRun() {
    sandbox_.writeDemoOfCa12("LOG_STATE=TRUE\n");
    sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  }

  static ChildResult qmrkctl(const std::vector<std::string>& _arguments) { return runProgram(QMRKCTL, _arguments); }
  static ChildResult logTest(const std::vector<std::string>& _arguments) {
    return runProgram(QMRK_LOGTEST, _arguments);
  }

  /// What the program prints with --json.
  static nlohmann::json jsonOf(std::vector<std::string> _arguments) {
    _arguments.emplace_back("--json");
    return nlohmann::json::parse(qmrkctl(_arguments).output);
  }

  std::string logRoot() const { return sandbox_.appData() + "\\Logs\\Common"; }
  std::string commonLog() const { return logRoot() + "\\common.log"; }
  std::string applicationLog(const std::string& _name) const {
    return logRoot() + "\\Application logs\\" + _name + "_log.txt";
  }

  /// Writes the common log, whose folder is made.
  void writeCommonLog(const std::string& _bytes) const {
    makeFolders(logRoot() + "\\Application logs");
    writeFile(commonLog(), _bytes);
  }

  ConfigSandbox sandbox_;
};

}  // namespace testsupport
