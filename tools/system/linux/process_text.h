// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/system/process_list.h"

namespace toolsystem {

/// By the state in a text of /proc/<pid>/stat; ended for a text of another form.
Activity activityOfStat(std::string_view _text);

/// The short name of the program there, which may hold brackets and blanks.
std::string nameOfStat(std::string_view _text);

/// The effective user id in a text of /proc/<pid>/status.
std::optional<std::uint32_t> effectiveUserId(std::string_view _text);

/// The user id that a process sees itself as.
/// @param _map its /proc/<pid>/uid_map, in which the second number of a line is as the caller sees it.
/// @param _ownMap the caller's; when both are the same, so are the numbers.
std::uint32_t mappedUserId(const std::string& _map, const std::string& _ownMap, std::uint32_t _userId);

}  // namespace toolsystem
