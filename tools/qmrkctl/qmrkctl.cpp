// SPDX-License-Identifier: MIT
// qmrkctl: shows and steers the logging of running applications. Each command has a file of its own.
#include <exception>
#include <string>

#include <CLI/CLI.hpp>

#include "quillmark_logging_version.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/lease_sweep.h"
#include "tools/system/terminal.h"

namespace {

int run(const qmrkctl::Choice& _choice, const qmrkctl::Options& _options) {
  qmrkctl::Report report(_options);
  int exitCode = qmrkctl::exitInternal;
  qmrkctl::sweepInPassing();
  try {
    exitCode = _choice.action(_options, report);
  } catch (const std::exception& error) {
    qmrkctl::Report::message("internal error: " + std::string(error.what()));
  }
  return report.finish(_choice.schema, exitCode);
}

}  // namespace

int main(int _argc, char** _argv) {
  toolsystem::ignoreClosedPipes();
  CLI::App program("Shows and steers the logging of running applications", "qmrkctl");
  program.set_version_flag("--version", std::string("qmrkctl ") + QMRK_LOG_VERSION_STRING, "Print the version");
  qmrkctl::Options options;
  qmrkctl::Choice choice;
  try {
    qmrkctl::addOptions(program, options);
    qmrkctl::addCommands(program, choice);
    program.parse(_argc, _argv);
  } catch (const CLI::ParseError& error) {
    // A request for help is no error. The numbers of the parser for all the others are not ours.
    return program.exit(error) == 0 ? qmrkctl::exitOk : qmrkctl::exitUsage;
  }
  return run(choice, options);
}
