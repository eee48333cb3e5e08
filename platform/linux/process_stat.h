// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace platform {

/// When the process of a text of /proc/<pid>/stat began; 0 when it has ended or the text is not of that form. The name
/// of the program, which stands in brackets there, may hold brackets and blanks.
std::uint64_t startTimeOfStat(std::string_view _text);

}  // namespace platform
