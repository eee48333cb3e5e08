// SPDX-License-Identifier: MIT
#pragma once

#include "tools/qmrkctl/command_report.h"

namespace qmrkctl {

/// All classes that are known of a CA: those of its list, of its filter, of running applications and of the lines of
/// the common log.
/// @return the exit code.
int listClasses(const Options& _options, Report& _report);

}  // namespace qmrkctl
