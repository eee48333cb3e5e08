// SPDX-License-Identifier: MIT
#pragma once

#include "tools/qmrkctl/class_change.h"

namespace qmrkctl {

/// Switches classes on for the request's duration, counts the lines and bytes that they log meanwhile, and switches
/// them off again, even after Ctrl-C; if this program is killed, their lease does it.
/// @return the exit code.
int tryClasses(const ChangeRequest& _request, const Options& _options, Report& _report);

}  // namespace qmrkctl
