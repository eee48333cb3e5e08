// SPDX-License-Identifier: MIT
#pragma once

#include "tools/qmrkctl/class_change.h"

namespace qmrkctl {

/// Switches classes on for the duration of the request, measures how many lines and bytes they log meanwhile, and takes
/// them off again: also after Ctrl-C, and by their lease when this program is killed.
/// @return the exit code.
int tryClasses(const ChangeRequest& _request, const Options& _options, Report& _report);

}  // namespace qmrkctl
