// SPDX-License-Identifier: MIT
#include "tools/system/named_path.h"

namespace toolsystem {

// Both forms are the same here.
NamedPath::NamedPath(const std::string& _path) : path_(_path) {}

NamedPath::~NamedPath() = default;

}  // namespace toolsystem
