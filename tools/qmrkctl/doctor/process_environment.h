// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "tools/qmrkctl/doctor/process_configurations.h"
#include "tools/qmrkctl/finding.h"

namespace qmrkctl {

/// What is wrong with the surroundings in which a process was started: its library, its environment.
/// @param _own what the process finds; null: not known.
/// @param _session what a set-up in the caller's session would find.
void checkProcessEnvironment(const RunningProcess& _process, const SeenConfiguration* _own,
                             const SeenConfiguration& _session, std::vector<Finding>& _findings);

}  // namespace qmrkctl
