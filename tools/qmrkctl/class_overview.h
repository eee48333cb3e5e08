// SPDX-License-Identifier: MIT
#pragma once

#include "tools/qmrkctl/command_report.h"

namespace qmrkctl {

/// Lists all known classes of a CA: those in its class list, its filter, running applications and the common log.
/// @return the exit code.
int listClasses(const Options& _options, Report& _report);

}  // namespace qmrkctl
