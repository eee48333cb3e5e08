// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/clock.h"

namespace qmrkctl {

/// A moment by the local wall clock, in milliseconds that such a clock counts from 1970-01-01 00:00 of the same zone.
/// Logs and records write moments in this way, without the offset from UTC.
using CivilTime = std::int64_t;

/// Converts a local time.
/// @return no value before 1970, or if there is no such day or time of day. Second 60 is valid.
std::optional<CivilTime> civilTime(const platform::LocalTime& _time);

/// "2026-11-22 05:03:07".
std::string civilText(CivilTime _time);

/// Now, in the zone of this process.
CivilTime civilNow();

}  // namespace qmrkctl
