// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include <CLI/CLI.hpp>

#include "tools/qmrkctl/command_report.h"
#include "tools/qmrkctl/common_options.h"

namespace qmrkctl {

/// Runs a command once the whole command line has been read. Reports its results and returns the exit code.
using Action = std::function<int(const Options&, Report&)>;

/// The command chosen on the command line.
struct Choice {
  std::string schema;  ///< of its JSON: "classes" for qmrkctl.classes/1
  Action action;
  bool isSweep = false;  ///< it ends leases itself, so nothing is to do so in passing
};

/// Adds a command to the program. Its options live in its callback, which stores the action in the choice.
using AddCommand = void (*)(CLI::App&, Choice&);

}  // namespace qmrkctl
