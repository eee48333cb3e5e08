// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace toolsystem {

/// The names of the users that the machine knows by itself, in their order; on Windows only that of the running one.
std::vector<std::string> usersOfMachine();

}  // namespace toolsystem
