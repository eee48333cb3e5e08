// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace toolsystem {

/// The time since the system was started, which nobody can set, and what tells this start from every other.
struct BootTime {
  std::string bootId;             ///< empty on Windows, which has none
  std::int64_t milliseconds = 0;  ///< since then, sleep included
};

BootTime bootTime();

}  // namespace toolsystem
