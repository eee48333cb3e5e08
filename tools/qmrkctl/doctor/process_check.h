// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/finding.h"
#include "tools/qmrkctl/finding_catalogue.h"
#include "tools/qmrkctl/running_processes.h"

namespace qmrkctl {

/// The configuration as a process would find it now; null: unknown.
struct ProcessConfiguration {
  const Configuration* own = nullptr;         ///< for the CA it asked for
  const Configuration* ofListener = nullptr;  ///< for the CA its listener follows
};

/// Adds what is wrong with a running process: its set-up, its listener, its class list and its log files.
void checkProcess(const RunningProcess& _process, const ProcessConfiguration& _configuration,
                  std::vector<Finding>& _findings);

/// "demo (pid 123, user anna)", with the names as they are: pass it through shown() before it is printed.
std::string processText(const RunningProcess& _process);

}  // namespace qmrkctl
