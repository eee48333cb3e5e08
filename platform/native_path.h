// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace platform {

/// The path in the system's form: on Linux with every backslash as a slash, on Windows unchanged.
std::string nativePath(const std::string& _path);

}  // namespace platform
