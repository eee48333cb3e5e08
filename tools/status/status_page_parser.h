// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include "tools/status/process_status.h"

namespace qmrkctl {

/// Parses a status page. Trusts nothing, since any process of the user can write there: limits a size or count to what
/// the page holds, takes 0 for an unknown number, and replaces what is not UTF-8.
/// @param _bytes a copy of the page, taken while nobody wrote (readStatusPage).
/// @return no value if it is no page of this layout, or was copied while being written.
std::optional<ProcessStatus> parseStatusPage(std::string_view _bytes);

}  // namespace qmrkctl
