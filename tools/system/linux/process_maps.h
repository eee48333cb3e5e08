// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace toolsystem {

/// Whether a text of /proc/<pid>/maps names the set-up library, also one that has been replaced since.
bool mapsLibrary(std::string_view _maps);

/// The names of the events whose files such a text shows, each once. A file that has been removed counts as well.
std::vector<std::string> mappedEvents(std::string_view _maps);

/// How many users of events a text of /proc/locks shows: shared locks of open files on byte 0 of files of a device.
/// @param _except files that do not count.
std::size_t countEventUsers(std::string_view _locks, std::uint64_t _device, const std::vector<std::uint64_t>& _except);

}  // namespace toolsystem
