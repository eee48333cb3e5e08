// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace platform {

// A clock that cannot be read yields 0; a local time, all zeros.

/// A moment in local time, as GetLocalTime gives it.
struct LocalTime {
  int year = 0;
  int month = 0;  ///< 1 to 12
  int day = 0;    ///< 1 to 31
  int hour = 0;
  int minute = 0;
  int second = 0;
  int millisecond = 0;
};

/// The wall clock in milliseconds since 1970-01-01 00:00 UTC.
std::int64_t wallClockMilliseconds();

/// The same in nanoseconds, as exactly as the system has it.
std::int64_t wallClockNanoseconds();

/// A clock that never goes back, in milliseconds from an unnamed start.
std::int64_t steadyMilliseconds();

/// The local time of a moment given in milliseconds since 1970-01-01 00:00 UTC. Follows a change of the system's time
/// zone within a minute.
LocalTime toLocalTime(std::int64_t _milliseconds);

/// GetLocalTime: the local time now.
LocalTime localTime();

}  // namespace platform
