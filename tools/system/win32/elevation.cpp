// SPDX-License-Identifier: MIT
#include "tools/system/elevation.h"

namespace toolsystem {

std::string elevated(const std::string& _command) { return "runas /user:Administrator \"" + _command + "\""; }

}  // namespace toolsystem
