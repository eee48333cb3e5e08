// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace platform {

/// Makes the C library check whether the system's time zone (/etc/localtime) was replaced, if its latest check was more
/// than half a minute ago. Call it before converting a time to local time: by itself the C library checks once. A zone
/// named in TZ stays as it is.
/// @param _now a moment of a clock that never goes back, in seconds.
void followTimeZone(std::int64_t _now);

}  // namespace platform
