// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
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

/// What two looks in a row agree on; that of the last of ten looks if none do. The kernel gives /proc/locks a page at a
/// time, so locks that come and go between two pages can hide others, or show them twice.
std::size_t settledCount(const std::function<std::size_t()>& _look);

}  // namespace toolsystem
