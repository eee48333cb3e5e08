// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/actor.h"

#include <cstdlib>
#include <fstream>

#include "tools/system/account.h"

namespace qmrkctl {
namespace {

std::string sudoUser() {
  const char* const user = std::getenv("SUDO_USER");
  return user != nullptr ? user : "";
}

// The number of the user of the session; empty where there is none.
std::string loginUser() {
  constexpr const char* nobody = "4294967295";
  std::string user;
  std::ifstream("/proc/self/loginuid") >> user;
  return user != nobody ? user : "";
}

}  // namespace

Json actorJson() {
  Json actor = {{"user", toolsystem::ownAccount().name}};
  if (!sudoUser().empty()) actor["sudoUser"] = sudoUser();
  if (!loginUser().empty()) actor["loginUid"] = loginUser();
  return actor;
}

std::string actorText() {
  const std::string user = toolsystem::ownAccount().name;
  return sudoUser().empty() ? user : user + " (sudo by " + sudoUser() + ")";
}

}  // namespace qmrkctl
