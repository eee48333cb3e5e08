// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

/// Whether a line of /proc/<pid>/maps is that of a file, named by its device and inode.
bool isMappingOf(const std::string& _line, dev_t _device, ino_t _file);

/// Whether a process has the file in its memory. An exec gives it a new memory, though it stays the same process.
/// @return nothing when the caller may not look at it.
std::optional<bool> mapsFile(std::uint32_t _processId, dev_t _device, ino_t _file);

}  // namespace platform
