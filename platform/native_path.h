// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace platform {

/// The path as the system wants it: on Linux every backslash becomes a slash, on Windows the path as it is.
std::string nativePath(const std::string& _path);

}  // namespace platform
