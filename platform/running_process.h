// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace platform {

// Who a process is. What the system does not tell is empty or 0.

/// When a process began, in a unit of the system: on Linux ticks after the start of the system, on Windows a FILETIME.
/// @return 0 when no such process runs (one that has ended but that nobody has waited for does not) or it cannot be
///   told.
std::uint64_t startTimeOf(std::uint32_t _processId);

/// Identifies the space in which this process's id has its meaning: on Linux the PID namespace, on Windows 0.
std::uint64_t processNamespace();

/// The path of the running program, with backslashes.
std::string programPath();

/// The effective user id; on Windows 0xFFFFFFFF.
std::uint32_t userId();

/// The name of the user on Windows; on Linux empty, since finding it may take a server.
std::string userName();

}  // namespace platform
