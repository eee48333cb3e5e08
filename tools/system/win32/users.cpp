// SPDX-License-Identifier: MIT
#include "tools/system/users.h"

#include "tools/system/account.h"

namespace toolsystem {

std::vector<std::string> usersOfMachine() { return {ownAccount().name}; }

}  // namespace toolsystem
