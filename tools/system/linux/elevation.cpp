// SPDX-License-Identifier: MIT
#include "tools/system/elevation.h"

namespace toolsystem {

std::string elevated(const std::string& _command) { return "sudo " + _command; }

}  // namespace toolsystem
