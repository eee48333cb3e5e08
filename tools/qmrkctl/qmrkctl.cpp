// SPDX-License-Identifier: MIT
// qmrkctl: administration of the logging of running applications. Each command has a file of its own.
#include <CLI/CLI.hpp>

#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/signal_command.h"

int main(int _argc, char** _argv) {
  CLI::App program("Administration of the logging of running applications", "qmrkctl");
  int exitCode = qmrkctl::exitDone;
  program.require_subcommand(1);
  qmrkctl::addSignalCommand(program, exitCode);
  try {
    program.parse(_argc, _argv);
  } catch (const CLI::ParseError& error) {
    // A request for help is no error. The numbers of the parser for all the others are not ours.
    return program.exit(error) == 0 ? qmrkctl::exitDone : qmrkctl::exitUsage;
  }
  return exitCode;
}
