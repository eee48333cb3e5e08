// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <CLI/CLI.hpp>

namespace qmrkctl {

/// What is wrong with a command line, and where help is. Names a command or an option that does not exist, and the one
/// that was probably meant.
/// @param _program has parsed the command line; _error is what that threw.
std::string usageText(const CLI::App& _program, const CLI::Error& _error);

}  // namespace qmrkctl
