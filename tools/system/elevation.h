// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace toolsystem {

/// The command line that runs a command with all permissions, for messages: "sudo qmrkctl tail".
std::string elevated(const std::string& _command);

}  // namespace toolsystem
