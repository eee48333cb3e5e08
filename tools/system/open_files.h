// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace toolsystem {

/// The paths of what a process has open for writing, as they are now: a file that was renamed has its new name, one
/// that was removed its last name and " (deleted)".
/// @return no value if the caller may not look, or on Windows.
std::optional<std::vector<std::string>> filesOpenForWriting(std::uint32_t _pid);

}  // namespace toolsystem
