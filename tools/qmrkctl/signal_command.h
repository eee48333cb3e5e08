// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace qmrkctl {

/// Adds the command "signal [--event NAME]", which sets a named event, so that the processes that listen for it apply
/// their log levels again. It never creates the event.
/// @param _exitCode receives the exit code of the command when it has run; must outlive the parsing.
void addSignalCommand(CLI::App& _program, int& _exitCode);

}  // namespace qmrkctl
