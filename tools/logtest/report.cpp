// SPDX-License-Identifier: MIT
#include "tools/logtest/report.h"

#include <iostream>

#include "platform/text_file.h"
#include "quillmark_logging.h"
#include "quillmark_logging_names.h"
#include "tools/logtest/setup_reason.h"

namespace logtest {
namespace {

using Quillmark_logging::nativePath;

std::string appFolder(const SetupFacts& _facts) { return _facts.logFolder.value_or("unknown") + "\\Application logs"; }

std::string logFile(const std::string& _path) {
  const bool canBeWritten = platform::TextWriter(_path, platform::TextWriter::Mode::append).isOpen();
  return nativePath(_path) + (canBeWritten ? "" : " (lines are lost: it cannot be written)");
}

}  // namespace

void reportLogs(const Options& _options, const SetupFacts& _facts, const std::vector<ClassLog>& _classes) {
  std::string text;
  if (_facts.fellBack) text += "No configuration of " + _facts.ca + ": the generic one is used.\n";
  text += "Common log: " + logFile(_facts.logFolder.value_or("") + "\\" + _facts.logFileName.value_or("")) + "\n";
  if (_options.app) {
    const std::string file = appFolder(_facts) + "\\" + *_options.app + Quillmark_logging::APPL_SPEC_LOG_FILE_SUFFIX;
    text += "Log of the application: " + logFile(file) + "\n";
  }
  // One piece, so that lines of the console appender, which may come from another thread, do not get into it.
  std::cout << text + describe(_classes) << std::flush;
}

void reportFailure(const SetupFacts& _facts) {
  std::cerr << "LogTest: the set-up failed: " << reasonOfFailure(_facts) << "\n";
  if (_facts.errorRecords) {
    std::cerr << "LogTest: problems are recorded in " << nativePath(*_facts.errorRecords) << "\n";
  }
}

void reportAppFailure(const std::string& _app, const SetupFacts& _facts) {
  std::cerr << "LogTest: the log of the application cannot be set up: "
            << (_app.empty() ? "its name is empty" : "cannot create " + nativePath(appFolder(_facts))) << "\n";
}

void reportVersions() {
  Quillmark_logging::printVersionInfo();
  std::cout << "Library " << Quillmark_logging::getQuillmarkLoggingVersion() << ", LogTest "
            << Quillmark_logging::getLogTestVersion() << std::endl;
}

}  // namespace logtest
