// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace toolsystem {

/// The time since boot, which nobody can set, and an id that no other boot has.
struct BootTime {
  std::string bootId;             ///< empty on Windows, which has none
  std::int64_t milliseconds = 0;  ///< since boot, sleep included
};

BootTime bootTime();

}  // namespace toolsystem
