// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace platform {

/// Has the C library look whether the zone of the system (/etc/localtime) was replaced, when its latest look was more
/// than half a minute ago. To be called before a time is turned into local time: by itself the C library looks once. A
/// zone that the environment names in TZ stays what it is.
/// @param _now a moment of a clock that never goes back, in seconds.
void followTimeZone(std::int64_t _now);

}  // namespace platform
