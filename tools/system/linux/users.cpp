// SPDX-License-Identifier: MIT
#include "tools/system/users.h"

#include <pwd.h>

namespace toolsystem {

std::vector<std::string> usersOfMachine() {
  std::vector<std::string> names;
  ::setpwent();
  for (const struct passwd* entry = ::getpwent(); entry != nullptr; entry = ::getpwent())
    names.emplace_back(entry->pw_name);
  ::endpwent();
  return names;
}

}  // namespace toolsystem
