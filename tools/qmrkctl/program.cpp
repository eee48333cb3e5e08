// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/program.h"

#include <exception>
#include <string>

#include <CLI/CLI.hpp>

#include "quillmark_logging_version.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/lease_sweep.h"
#include "tools/system/terminal.h"

namespace qmrkctl {
namespace {

int run(const Choice& _choice, const Options& _options) {
  Report report(_options);
  int exitCode = exitInternal;
  sweepInPassing();
  try {
    exitCode = _choice.action(_options, report);
  } catch (const std::exception& error) {
    Report::message("internal error: " + std::string(error.what()));
  }
  return report.finish(_choice.schema, exitCode);
}

}  // namespace

int runProgram(int _argc, char** _argv) {
  toolsystem::ignoreClosedPipes();
  CLI::App program("Shows and steers the logging of running applications", "qmrkctl");
  program.set_version_flag("--version", std::string("qmrkctl ") + QMRK_LOG_VERSION_STRING, "Print the version");
  Options options;
  Choice choice;
  try {
    addOptions(program, options);
    addCommands(program, choice);
    program.parse(_argc, _argv);
  } catch (const CLI::ParseError& error) {
    // A request for help is no error. The numbers of the parser for all the others are not ours.
    return program.exit(error) == 0 ? exitOk : exitUsage;
  }
  return run(choice, options);
}

}  // namespace qmrkctl
