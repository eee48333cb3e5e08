// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/clock.h"

namespace qmrkctl {

/// A moment as the clock on the wall shows it, in the milliseconds that such a clock would have counted since
/// 1970-01-01 00:00 of the same zone. Logs and records write their moments like this, and do not say which one it was
/// in UTC.
using CivilTime = std::int64_t;

/// @return nothing when there is no such day or time of day, and before 1970. A second may be the 60th.
std::optional<CivilTime> civilTime(const platform::LocalTime& _time);

/// "2026-11-22 05:03:07".
std::string civilText(CivilTime _time);

/// Now, in the zone of this process.
CivilTime civilNow();

}  // namespace qmrkctl
