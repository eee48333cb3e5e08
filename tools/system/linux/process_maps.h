// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace toolsystem {

/// Whether a text of /proc/<pid>/maps names the set-up library, even if the file has since been replaced.
bool mapsLibrary(std::string_view _maps);

/// The names of the events whose files such a text shows, removed ones included, each once.
std::vector<std::string> mappedEvents(std::string_view _maps);

/// How many users of events a text of /proc/locks shows: shared open-file locks on byte 0 of files on a device.
/// @param _except inode numbers of files to leave out.
std::size_t countEventUsers(std::string_view _locks, std::uint64_t _device, const std::vector<std::uint64_t>& _except);

}  // namespace toolsystem
