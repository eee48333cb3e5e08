// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

#include "tools/qmrkctl/command.h"

namespace qmrkctl {

/// Adds the options that every command has.
/// @param _options receives them when the command line is parsed; must outlive the program.
void addOptions(CLI::App& _program, Options& _options);

/// Adds all commands. Whatever needs their definitions, such as completion, builds the program with these functions.
/// @param _choice receives the command that parsing chooses; must outlive the program.
void addCommands(CLI::App& _program, Choice& _choice);

// Each is in the source named for it.
void addAppsCommand(CLI::App& _program, Choice& _choice);
void addBundleCommand(CLI::App& _program, Choice& _choice);
void addCheckCommand(CLI::App& _program, Choice& _choice);
void addClassesCommand(CLI::App& _program, Choice& _choice);
void addCompletionCommand(CLI::App& _program, Choice& _choice);
void addDoctorCommand(CLI::App& _program, Choice& _choice);
void addErrorsCommand(CLI::App& _program, Choice& _choice);
void addExplainCommand(CLI::App& _program, Choice& _choice);
void addHistoryCommand(CLI::App& _program, Choice& _choice);
void addInitConfigCommand(CLI::App& _program, Choice& _choice);
void addLeasesCommand(CLI::App& _program, Choice& _choice);
void addMarkCommand(CLI::App& _program, Choice& _choice);
void addSchemaCommand(CLI::App& _program, Choice& _choice);
void addShowCommand(CLI::App& _program, Choice& _choice);
void addSignalCommand(CLI::App& _program, Choice& _choice);
void addTailCommand(CLI::App& _program, Choice& _choice);
void addWhereCommand(CLI::App& _program, Choice& _choice);
void addWhyCommand(CLI::App& _program, Choice& _choice);

}  // namespace qmrkctl
