// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tools/qmrkctl/command_model.h"

namespace qmrkctl {

// The text of a script that completes the words of a program, for each shell: its commands, their options, and the
// values of options that have a fixed set. Where anything may stand, the shell offers the names of files.

std::string bashCompletion(const CommandModel& _program);
std::string zshCompletion(const CommandModel& _program);
std::string fishCompletion(const CommandModel& _program);

}  // namespace qmrkctl
