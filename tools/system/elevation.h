// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace toolsystem {

/// The command as somebody with all permissions gives it, for messages: "sudo qmrkctl tail".
std::string elevated(const std::string& _command);

}  // namespace toolsystem
