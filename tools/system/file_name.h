// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace toolsystem {

/// Whether a folder can have the name. On Windows not with one of the characters "<>|?*; on Linux always.
/// @param _name a part of a path, without separators; not empty.
bool isFolderName(std::string_view _name);

/// Whether a file can have it. On Windows that must not be a device's either, with any ending: "nul.log".
bool isFileName(std::string_view _name);

/// How many bytes a path can have at most, with all of its parts: 4095 on Linux.
std::size_t longestPath();

/// Whether two such names are one: in any letter case (of ASCII) on Windows, only if they are equal on Linux.
bool isSameFileName(std::string_view _one, std::string_view _other);

}  // namespace toolsystem
