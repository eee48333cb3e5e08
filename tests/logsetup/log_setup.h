// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <boost/logging/logging.hpp>
#include <string>

#include "config/cfg_data_manager.h"
#include "config/load_time_switches.h"
#include "logsetup/log_manager_binding.h"
#include "quillmark_logging_names.h"
#include "tests/support/config_sandbox.h"
#include "trace/trace_flags.h"

namespace testsupport {

/// A sandbox of configuration files, and a log manager in which nothing is connected and everything is on. Its cache
/// has been flushed, so that messages go straight through.
class LogSetup : public testing::Test {
 protected:
  LogSetup() {
    boost::logging::flush_log_cache();
    disconnectAll();
  }
  ~LogSetup() override {
    disconnectAll();
    Quillmark_logging::setLoadTimeTrace(false);
    Quillmark_logging::setFreeFunctionTrace(false);
    Quillmark_logging::setTsMode(false);
    CfgDataManager::getInstance(false);
  }

  /// What happens while the library is loaded.
  static void load() { Quillmark_logging::readLoadTimeSwitches(); }

  static bool isOn(const std::string& _log) { return boost::logging::logger(_log).is_enabled(); }

  static void log(const std::string& _log, const std::string& _text) {
    QMRK_LOG(boost::logging::logger(_log)) << _text;
  }

  ConfigSandbox sandbox_;

 private:
  static void disconnectAll() {
    Quillmark_logging::deleteAppender("*", Quillmark_logging::QMRK_APPENDERS);
    Quillmark_logging::deleteModifier("*", Quillmark_logging::QMRK_MODIFIERS);
    Quillmark_logging::deleteAppender("*", Quillmark_logging::APPENDER_WRITE2FILE_INIT);
    Quillmark_logging::enableLogs("*");
  }
};

}  // namespace testsupport
