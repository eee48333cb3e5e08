// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "tools/qmrkctl/common_options.h"
#include "tools/qmrkctl/viewpoint.h"

namespace qmrkctl {

/// The viewpoint that the options name: a process, the first process of an application, a user, or the current user.
/// Without one, reports the reason on standard error.
/// @param _exitCode receives the exit code if there is no value; otherwise untouched.
std::optional<Viewpoint> askedViewpoint(const Options& _options, int& _exitCode);

/// Whether a process is there, and this program may not look into it.
bool isHiddenProcess(int _pid);

/// Says so, and who may.
/// @return the code to end with.
int refuseHiddenProcess(int _pid);

}  // namespace qmrkctl
