// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tools/system/replaced_file.h"

namespace toolsystem {

/// Appends a line to an existing log, by one append of the system, so that it stays whole among those of running
/// processes; "\n" reaches the file as the system's line end. Owner, mode and name stay as they are. Never creates a
/// file, and never follows a link to one of another user: what a user can put in place of a log must not lead root
/// elsewhere.
/// @param _path with separators of either kind.
/// @param _owner to whom the file must belong; no value: to anybody.
std::optional<FileFailure> appendToLog(const std::string& _path, const std::string& _line,
                                       std::optional<std::uint32_t> _owner);

/// Appends a line to a file of records, which is created if it is missing, with mode 0644 less the umask. What a killed
/// process left unfinished is ended first. Several processes may append at once.
std::optional<FileFailure> appendRecord(const std::string& _path, const std::string& _line);

}  // namespace toolsystem
