// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <boost/logging/logging.hpp>

#include "logsetup/log_manager_binding.h"
#include "quillmark_logging.h"
#include "quillmark_logging_names.h"
#include "tests/support/config_sandbox.h"
#include "trace/trace_flags.h"

namespace testsupport {

/// Switches the rotation on in a configuration.
constexpr char rotationKeys[] = "SPEC_LOG_ROTATION=TRUE\n";

using Names = std::vector<std::string>;

inline void log(const std::string& _log, const std::string& _message) {
  QMRK_LOG(boost::logging::logger(_log)) << _message;
}

/// Gives every test a configuration of CA12 in which all of its logs are on, and a log manager without appenders.
class ApplicationLogs : public testing::Test {
 protected:
  ApplicationLogs() {
    boost::logging::flush_log_cache();
    sandbox_.writeInit("CA12", "*;");
    configure("");
  }
  ~ApplicationLogs() override {
    disconnectAll();
    Quillmark_logging::setTsMode(false);
  }

  static void disconnectAll() {
    Quillmark_logging::deleteAppender("*", Quillmark_logging::APPENDER_COUT_APPL_SPEC);
    Quillmark_logging::deleteAppender("*", Quillmark_logging::APPENDER_COUT_ROLLING_APPL_SPEC);
  }

  void configure(const std::string& _cfg) const { sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\n" + _cfg); }
  void configureRotation(const std::string& _limit, const std::string& _files) const {
    configure(rotationKeys + ("SPEC_LOG_FILE_LIMIT=" + _limit + "\nSPEC_NR_OF_LOG_FILES=" + _files + "\n"));
  }

  static bool create(const std::string& _logLevel, bool _overWrite = false, const std::string& _fileName = "App") {
    return Quillmark_logging::createApplicationSpecificLogFile(_logLevel, _fileName, "CA12", _overWrite);
  }

  std::string folder() const { return sandbox_.logFolder() + "\\Application logs"; }
  std::string file(const std::string& _name = "App") const { return folder() + "\\" + _name + "_log.txt"; }
  std::string backup(int _number) const { return file() + "." + std::to_string(_number); }
  Names names() const { return namesIn(folder()); }

  // Puts a file there, so that the folders above it exist.
  void writeExisting(const std::string& _bytes) const {
    makeFolders(folder());
    writeFile(file(), _bytes);
  }

  // The lines of a trace by the functions themselves, without those by functions that they call.
  std::string ownLines(const std::string& _trace) const {
    std::string lines;
    for (std::size_t begin = 0, end = 0; (end = _trace.find('\n', begin)) != std::string::npos; begin = end + 1) {
      const std::string line = _trace.substr(begin, end + 1 - begin);
      if (line.find("createApplicationSpecificLogFile(") != std::string::npos) lines += line;
    }
    return sandbox_.masked(lines);
  }

  ConfigSandbox sandbox_;
};

}  // namespace testsupport
