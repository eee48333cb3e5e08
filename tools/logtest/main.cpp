// SPDX-License-Identifier: MIT
#include <exception>
#include <iostream>

#include "quillmark_logging.h"
#include "quillmark_logging_names.h"
#include "tools/logtest/options.h"
#include "tools/logtest/report.h"
#include "tools/logtest/setup_facts.h"

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

int run(const logtest::Options& _options) {
  const bool done = setUp(_options);
  const logtest::SetupFacts facts = logtest::gatherSetupFacts(chosenCa(_options));
  if (!done) {
    logtest::reportFailure(facts);
    return setUpFailed;
  }
  logtest::logLines(_options, facts);
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
    return run(options);
  } catch (const std::exception& error) {
    std::cerr << "LogTest: " << error.what() << "\n";
    return setUpFailed;
  }
}
