// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tools/system/replaced_file.h"

namespace toolsystem {

/// Appends a line to an existing log in one system call, so that it stays whole among the lines of running processes.
/// First ends a line that a killed process left unfinished, if the log can be read. Never creates the file. On Linux
/// never follows a link either: what a user can put in place of a log must not lead root elsewhere.
/// @param _path with separators of either kind.
/// @param _line ends with "\n", which reaches the file as the system's line end.
/// @param _owner the user to whom the file must belong; no value: anybody. Ignored on Windows.
/// @return no value on success.
std::optional<FileFailure> appendToLog(const std::string& _path, const std::string& _line,
                                       std::optional<std::uint32_t> _owner);

/// Appends a line to a file of records; creates it if it is missing, with mode 0644 less the umask, and for those who
/// may write in its folder. First ends a line that a killed process left unfinished. Several processes may append at
/// once. Arguments and result are as above.
std::optional<FileFailure> appendRecord(const std::string& _path, const std::string& _line);

}  // namespace toolsystem
