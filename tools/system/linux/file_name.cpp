// SPDX-License-Identifier: MIT
#include "tools/system/file_name.h"

#include <linux/limits.h>

namespace toolsystem {

bool isFolderName(std::string_view /*_name*/) { return true; }

bool isFileName(std::string_view /*_name*/) { return true; }

std::size_t longestPath() { return PATH_MAX - 1; }

bool isSameFileName(std::string_view _one, std::string_view _other) { return _one == _other; }

}  // namespace toolsystem
