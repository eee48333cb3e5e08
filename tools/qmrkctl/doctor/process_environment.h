// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "tools/qmrkctl/doctor/process_configurations.h"
#include "tools/qmrkctl/finding.h"

namespace qmrkctl {

/// Adds what is wrong with the surroundings of a process: the library it loaded, the environment it was started with,
/// the folder of its events. That one takes the place of Q610, which it explains.
/// @param _own what the process finds; null: unknown.
/// @param _session what a set-up in the caller's session would find.
void checkProcessEnvironment(const RunningProcess& _process, const SeenConfiguration* _own,
                             const SeenConfiguration& _session, std::vector<Finding>& _findings);

}  // namespace qmrkctl
