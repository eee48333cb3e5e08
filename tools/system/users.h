// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace toolsystem {

/// The names of the machine's users, in the order of its user database; on Windows only the current user.
std::vector<std::string> usersOfMachine();

}  // namespace toolsystem
