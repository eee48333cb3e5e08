// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace qmrkctl {

/// A moment in milliseconds since 1970 (UTC), formatted by RFC 3339: "2026-11-22T05:21:14.123Z".
std::string utcText(std::int64_t _milliseconds);

/// Now, in milliseconds since 1970 (UTC).
std::int64_t millisecondsNow();

/// Now, as utcText formats it.
std::string utcNow();

}  // namespace qmrkctl
