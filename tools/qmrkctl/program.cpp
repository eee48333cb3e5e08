// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/program.h"

#include <cerrno>
#include <exception>
#include <iostream>
#include <string>

#include <CLI/CLI.hpp>

#include "quillmark_logging_version.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/lease_sweep.h"
#include "tools/qmrkctl/usage_error.h"
#include "tools/system/terminal.h"

namespace qmrkctl {
namespace {

int run(const Choice& _choice, const Options& _options) {
  Report report(_options);
  int exitCode = exitInternal;
  if (!_choice.isSweep) sweepInPassing();
  try {
    exitCode = _choice.action(_options, report);
  } catch (const std::exception& error) {
    Report::message("internal error: " + std::string(error.what()));
  }
  return report.finish(_choice.schema, exitCode);
}

// Whoever asked for the object of a command gets one, if the line named a command.
int tellUsage(const CLI::App& _program) {
  const auto commands = _program.get_subcommands();
  if (commands.empty() || _program.count("--json") == 0) return exitUsage;
  Options options;
  options.json = true;
  return Report(options).finish(commands.front()->get_name(), exitUsage);
}

// A request for help is no error. The numbers of the parser for all the others are not ours.
int tellParser(const CLI::App& _program, const CLI::ParseError& _error) {
  if (_program.exit(_error) != 0) return tellUsage(_program);
  errno = 0;
  if (std::cout.flush() || errno == EPIPE) return exitOk;
  Report::message("the help cannot be written");
  return exitInternal;
}

}  // namespace

int runProgram(int _argc, char** _argv) {
  toolsystem::ignoreClosedPipes();
  toolsystem::reserveClosedStreams();
  CLI::App program("Shows and steers the logging of running applications", "qmrkctl");
  program.failure_message(
      [](const CLI::App* _program, const CLI::Error& _error) { return usageText(*_program, _error); });
  program.set_version_flag("--version", std::string("qmrkctl ") + QMRK_LOG_VERSION_STRING, "Print the version");
  Options options;
  Choice choice;
  try {
    addOptions(program, options);
    addCommands(program, choice);
    program.parse(_argc, _argv);
  } catch (const CLI::ParseError& error) {
    return tellParser(program, error);
  }
  return run(choice, options);
}

}  // namespace qmrkctl
