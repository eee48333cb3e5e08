// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include <CLI/CLI.hpp>

#include "tools/qmrkctl/command_report.h"
#include "tools/qmrkctl/common_options.h"

namespace qmrkctl {

/// What a command does once the whole command line has been read: tells by the report, and returns the exit code.
using Action = std::function<int(const Options&, Report&)>;

/// The command that the command line chose.
struct Choice {
  std::string schema;  ///< of its JSON, "classes" for qmrkctl.classes/1
  Action action;
};

/// Adds a command to the program. Its options live in the callback, which puts the action into the choice.
using AddCommand = void (*)(CLI::App&, Choice&);

}  // namespace qmrkctl
