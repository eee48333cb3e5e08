// SPDX-License-Identifier: MIT
#include "tools/system/path_in_root.h"

namespace toolsystem {

// There are no other roots.
std::string pathInRoot(const std::string& /*_root*/, const std::string& _path) { return _path; }

}  // namespace toolsystem
