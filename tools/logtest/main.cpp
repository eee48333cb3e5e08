// SPDX-License-Identifier: MIT
#include <exception>
#include <iostream>
#include <vector>

#include "quillmark_logging.h"
#include "quillmark_logging_names.h"
#include "tools/logtest/class_log.h"
#include "tools/logtest/options.h"
#include "tools/logtest/report.h"
#include "tools/logtest/setup_facts.h"
#include "tools/logtest/watch.h"

namespace {

constexpr int setUpFailed = 1;
constexpr int wrongUsage = 2;
constexpr char programName[] = "LogTest";

// The CA that the set-up takes.
std::string chosenCa(const logtest::Options& _options) {
  std::string ca = Quillmark_logging::GENERIC_CA;
  if (_options.hasCa) {
    ca = _options.ca;
  } else {
    Quillmark_logging::getEnvironmentVariable(Quillmark_logging::DEFAULT_CA_NR, ca);
  }
  return ca;
}

bool setUp(const logtest::Options& _options) {
  if (_options.hasCa) return Quillmark_logging::initDefaultLogs(programName, _options.ca, _options.writeToCout);
  return Quillmark_logging::initDefaultLogs(programName, _options.writeToCout);
}

bool setUpApp(const logtest::Options& _options) {
  using Quillmark_logging::createApplicationSpecificLogFile;
  if (!_options.app) return true;
  if (_options.hasCa) {
    return createApplicationSpecificLogFile(_options.classes, *_options.app, _options.ca, _options.overWrite);
  }
  return createApplicationSpecificLogFile(_options.classes, *_options.app, _options.overWrite);
}

void logLines(const logtest::Options& _options, std::vector<logtest::ClassLog>& _classes) {
  if (_options.listen) {
    logtest::watch(_classes, *_options.listen, _options.stamps);
    return;
  }
  for (int line = 1; line <= _options.lines; ++line) {
    for (auto& each : _classes) {
      logtest::logLine(each, "line " + std::to_string(line) + " of " + std::to_string(_options.lines), _options.stamps);
    }
  }
}

int run(const logtest::Options& _options) {
  const bool done = setUp(_options);
  const logtest::SetupFacts facts = logtest::gatherSetupFacts(chosenCa(_options));
  if (!done) {
    logtest::reportFailure(facts);
    return setUpFailed;
  }
  if (!setUpApp(_options)) {
    logtest::reportAppFailure(*_options.app, facts);
    return setUpFailed;
  }
  auto classes = logtest::classLogsOf(_options.classes);
  logLines(_options, classes);
  logtest::reportLogs(_options, facts, classes);
  return 0;
}

}  // namespace

int main(int _argc, char** _argv) {
  try {
    logtest::Options options;
    switch (logtest::parseOptions(_argc, _argv, options)) {
      case logtest::Parsed::done:
        return 0;
      case logtest::Parsed::wrong:
        return wrongUsage;
      case logtest::Parsed::run:
        break;
    }
    if (options.version) {
      logtest::reportVersions();
      return 0;
    }
    return run(options);
  } catch (const std::exception& error) {
    std::cerr << "LogTest: " << error.what() << "\n";
    return setUpFailed;
  }
}
