// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace qmrkctl {

/// Parses a duration such as "500ms", "20s", "20m", "2h" or "1d"; a bare number means seconds.
/// @return no value for any other text, or for more than 10 years.
std::optional<std::chrono::milliseconds> parseDuration(std::string_view _text);

/// The reverse, in the largest unit that divides it evenly; "0s" for none.
std::string durationText(std::chrono::milliseconds _duration);

/// The end of the message about a text that is no duration.
constexpr const char* durationHint = "is no duration, such as 500ms, 20s, 20m, 2h or 1d";

}  // namespace qmrkctl
