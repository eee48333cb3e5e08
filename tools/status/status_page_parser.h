// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include "tools/status/process_status.h"

namespace qmrkctl {

/// Reads a status page. Believes nothing: any process of the user can write anything there. A size or count that is too
/// large is cut to what the page holds, a number that stands for nothing becomes 0, and what is no UTF-8 is replaced.
/// @param _bytes a copy of the page, taken while nobody wrote (readStatusPage).
/// @return nothing when it is no page of this layout, or was copied while it was written.
std::optional<ProcessStatus> parseStatusPage(std::string_view _bytes);

}  // namespace qmrkctl
