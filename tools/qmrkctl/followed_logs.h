// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tools/qmrkctl/running_processes.h"

namespace qmrkctl {

/// The names of all logs of the applications that follow a class list; none if some of them are unknown.
/// @param _initPath in the library's form, as the applications see it.
std::vector<std::string> logsThatFollow(const std::vector<RunningProcess>& _processes, const std::string& _initPath);

}  // namespace qmrkctl
