// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "tools/qmrkctl/common_options.h"
#include "tools/qmrkctl/viewpoint.h"

namespace qmrkctl {

/// The viewpoint that the options name: a user, a process, the first process of an application, or the running user.
/// What stands in the way is told on standard error.
/// @param _exitCode receives the code to end with when there is no value.
std::optional<Viewpoint> askedViewpoint(const Options& _options, int& _exitCode);

}  // namespace qmrkctl
