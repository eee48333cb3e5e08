// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace qmrkctl {

/// All bytes of a regular file, unchanged. No value: it cannot be opened or read to its end, is larger than the library
/// would read, or is none. Never waits, whatever stands there.
/// @param _path with separators of either kind.
std::optional<std::string> bytesOfFile(const std::string& _path);

}  // namespace qmrkctl
