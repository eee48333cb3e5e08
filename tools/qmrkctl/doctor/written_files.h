// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qmrkctl {

/// A path as the system names an open file: without links.
/// @param _root through which the files of the process are reached; empty: as those of this program.
/// @param _path in the system's form, as the process sees it.
std::string pathWithoutLinks(const std::string& _root, const std::string& _path);

/// The names under which a process writes a file: its path if it has that open, and what begins with it, such as the
/// name of a backup, or that of a removed file with " (deleted)" behind it.
/// @param _path without links.
/// @return no value: unknown.
std::optional<std::vector<std::string>> namesOfWritten(std::uint32_t _pid, const std::string& _path);

/// Whether the process can go on writing the file, whatever its rights are now; no value: unknown.
/// @param _path in the system's form, as the process sees it.
std::optional<bool> hasOpenForWriting(std::uint32_t _pid, const std::string& _path);

}  // namespace qmrkctl
