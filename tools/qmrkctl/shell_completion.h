// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tools/qmrkctl/command_model.h"

namespace qmrkctl {

// The completion script of a program, for each shell: it completes commands, their options, and the values of options
// that have a fixed set. Anywhere else the shell offers file names.

std::string bashCompletion(const CommandModel& _program);
std::string zshCompletion(const CommandModel& _program);
std::string fishCompletion(const CommandModel& _program);

}  // namespace qmrkctl
