// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "tools/logs/civil_time.h"

namespace qmrkctl {

/// Parses the value of --since: "30s", "10m", "2h" or "1d" before now; "05:00" or "05:00:30" today, or yesterday if
/// that is still to come; "2026-11-22" at midnight; "2026-11-22 05:00" or "2026-11-22T05:00:30".
/// @param _now in milliseconds since 1970 (UTC).
/// @param _toLocal converts such a moment to local time: platform::toLocalTime.
/// @return no value for any other text.
std::optional<CivilTime> sinceTime(std::string_view _text, std::int64_t _now,
                                   platform::LocalTime (*_toLocal)(std::int64_t));

/// Examples for the message about any other text.
constexpr char sinceForms[] = R"("10m", "2h", "05:00" or "2026-11-22 05:00")";

}  // namespace qmrkctl
