// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace qmrkctl {

/// Reads a duration such as "500ms", "20s", "20m", "2h" or "1d"; a number alone counts seconds.
/// @return no value for any other text, and for more than 10 years.
std::optional<std::chrono::milliseconds> parseDuration(std::string_view _text);

/// The same form, in the largest unit of which it is a multiple.
std::string durationText(std::chrono::milliseconds _duration);

/// Told by the command line where a text is no duration.
constexpr const char* durationHint = "is no duration, such as 500ms, 20s, 20m, 2h or 1d";

}  // namespace qmrkctl
