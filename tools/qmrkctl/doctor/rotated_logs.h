// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "tools/qmrkctl/finding.h"
#include "tools/qmrkctl/running_processes.h"

namespace qmrkctl {

/// Adds what disturbs the logs that applications rotate: another one that rotates the same file, and whoever deletes or
/// renames it. No application looks for that, since it alone is to rename the file.
void checkRotatedLogs(const std::vector<const RunningProcess*>& _processes, std::vector<Finding>& _findings);

}  // namespace qmrkctl
