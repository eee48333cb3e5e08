// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace platform {

/// Makes the C library check whether the file of the time zone was replaced, the system's (/etc/localtime) or the one
/// that TZ names, if its latest check was more than half a minute ago. Call it before converting a time to local time:
/// by itself the C library checks once. A zone that TZ describes by a rule stays as it is. One thread at a time, which
/// may change the text of TZ for a moment.
/// @param _now a moment of a clock that never goes back, in seconds.
void followTimeZone(std::int64_t _now);

}  // namespace platform
