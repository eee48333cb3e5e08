// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/system/process_list.h"

namespace toolsystem {

/// The activity, from the state in a text of /proc/<pid>/stat; ended for any other text.
Activity activityOfStat(std::string_view _text);

/// The program's short name in such a text; it may contain brackets and blanks.
std::string nameOfStat(std::string_view _text);

/// The effective user id in a text of /proc/<pid>/status; no value if there is none.
std::optional<std::uint32_t> effectiveUserId(std::string_view _text);

/// The user id as the process itself sees it.
/// @param _map its /proc/<pid>/uid_map, whose second numbers are ids as the caller sees them.
/// @param _ownMap the caller's; if both maps are equal, so are the ids.
/// @param _userId as the caller sees it.
std::uint32_t mappedUserId(const std::string& _map, const std::string& _ownMap, std::uint32_t _userId);

}  // namespace toolsystem
