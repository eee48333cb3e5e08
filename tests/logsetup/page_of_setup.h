// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "quillmark_logging.h"
#include "tests/logsetup/log_setup.h"
#include "tests/logsetup/own_status.h"
#include "tests/support/private_events.h"

namespace testsupport {

/// Every test has a configuration of CA12 with a common log, a class that is on, and no status page yet.
class PageOfSetup : public LogSetup {
 protected:
  static void SetUpTestSuite() { usePrivateEvents(); }

  PageOfSetup() {
    sandbox_.writeInit("CA12", "Def.a;\n");
    writeCfg("CA12", "LOG_STATE=TRUE\n");
  }

  // Windows removes no file that is open.
  ~PageOfSetup() override {
    Quillmark_logging::deleteAppender("*", Quillmark_logging::APPENDER_COUT_APPL_SPEC);
    Quillmark_logging::deleteAppender("*", Quillmark_logging::APPENDER_COUT_ROLLING_APPL_SPEC);
  }

  void writeCfg(const std::string& _ca, const std::string& _keys) const {
    sandbox_.writeCfg(_ca, "COMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=Def.a;Def.b;\n" + _keys);
  }

  std::string commonLog() const { return sandbox_.logFolder() + "\\common.log"; }

  static void expectFailure(status::Failure _failure, const std::string& _error) {
    const qmrkctl::ProcessStatus process = ownStatus();
    EXPECT_EQ(process.setUp.result, status::Result::failed);
    EXPECT_EQ(process.setUp.failure, _failure);
    EXPECT_EQ(process.setUp.error.text, _error);
  }

  static qmrkctl::LogFileStatus fileOf(const std::string& _path) {
    for (const qmrkctl::LogFileStatus& file : ownStatus().files) {
      if (file.path.text == _path) return file;
    }
    ADD_FAILURE() << "no file " << _path;
    return {};
  }

  static bool isShownOn(const std::string& _log) {
    const auto logs = ownStatus().classes.logs;
    const auto log = std::find_if(logs.begin(), logs.end(), [&](const auto& _one) { return _one.name == _log; });
    EXPECT_NE(log, logs.end()) << _log;
    return log != logs.end() && log->isOn;
  }
};

}  // namespace testsupport
