// SPDX-License-Identifier: MIT
#include "tools/logtest/report.h"

#include <algorithm>
#include <boost/logging/logging.hpp>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <vector>

#include "logsetup/class_list.h"
#include "platform/text_file.h"
#include "quillmark_logging.h"
#include "tools/logtest/setup_reason.h"

namespace logtest {
namespace {

using boost::logging::logger;
using Quillmark_logging::nativePath;

std::vector<logger> loggersOf(const std::string& _classes) {
  std::vector<logger> loggers;
  Quillmark_logging::forEachClass(_classes + ";", [&loggers](const std::string& _class, int) {
    if (!_class.empty()) loggers.emplace_back(_class);
  });
  return loggers;
}

std::string commonLog(const SetupFacts& _facts) {
  const std::string path = _facts.logFolder.value_or("") + "\\" + _facts.logFileName.value_or("");
  const bool canBeWritten = platform::TextWriter(path, platform::TextWriter::Mode::append).isOpen();
  return nativePath(path) + (canBeWritten ? "" : " (lines are lost: it cannot be written)");
}

std::string describe(const std::vector<logger>& _loggers, int _lines) {
  std::size_t width = 0;
  for (const logger& log : _loggers)
    width = std::max(width, log.name().size());
  std::ostringstream text;
  for (const logger& log : _loggers) {
    text << "  " << std::left << std::setw(static_cast<int>(width)) << log.name()
         << (log.is_enabled() ? "  on, lines logged: " + std::to_string(_lines) : std::string("  off")) << "\n";
  }
  return text.str();
}

}  // namespace

void logLines(const Options& _options, const SetupFacts& _facts) {
  const std::vector<logger> loggers = loggersOf(_options.classes);
  for (int line = 1; line <= _options.lines; ++line) {
    for (const logger& log : loggers)
      QMRK_LOG(log) << "line " << line << " of " << _options.lines;
  }
  // One piece, so that lines of the console appender, which may come from another thread, do not get into it.
  const std::string fallBack =
      _facts.fellBack ? "No configuration of " + _facts.ca + ": the generic one is used.\n" : std::string();
  std::cout << fallBack + "Common log: " + commonLog(_facts) + "\n" + describe(loggers, _options.lines) << std::flush;
}

void reportFailure(const SetupFacts& _facts) {
  std::cerr << "LogTest: the set-up failed: " << reasonOfFailure(_facts) << "\n";
  if (_facts.errorRecords) {
    std::cerr << "LogTest: problems are recorded in " << nativePath(*_facts.errorRecords) << "\n";
  }
}

}  // namespace logtest
