// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "tools/logs/civil_time.h"

namespace qmrkctl {

/// What an option --since means: "30s", "10m", "2h", "1d" (so long ago); "05:00", "05:00:30" (today, or yesterday when
/// that is still to come); "2026-11-22" (its midnight); "2026-11-22 05:00", "2026-11-22T05:00:30".
/// @param _now in milliseconds since 1970 (UTC).
/// @param _toLocal gives the local time of such a moment: platform::toLocalTime.
/// @return nothing when it is none of these.
std::optional<CivilTime> sinceTime(std::string_view _text, std::int64_t _now,
                                   platform::LocalTime (*_toLocal)(std::int64_t));

/// For messages about a text that is none of them.
constexpr char sinceForms[] = R"("10m", "2h", "05:00" or "2026-11-22 05:00")";

}  // namespace qmrkctl
