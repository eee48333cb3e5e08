// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
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

/// Whether the last set-up has succeeded; otherwise it is unknown what the process has read from its .cfg file.
bool isSetUp(const ProcessStatus& _status);

/// Q613 of a process that would read another .cfg file today, or another name of the common log in it; no value if it
/// would not, or could read none.
/// @param _name of the process, as in other findings.
std::optional<Finding> changedSinceSetUp(const std::string& _name, const ProcessStatus& _status,
                                         const Configuration& _configuration);

/// Whether a process that was set up has connected its common log with another filter than its file has now.
bool hasOtherFilter(const ProcessStatus& _status, const Configuration& _configuration);

/// Whether a process that was set up goes on by a .cfg file that is gone now, or cannot be read any more.
bool hasLostCfg(const ProcessStatus& _status, const Configuration& _configuration);

/// "demo (pid 123, user anna)", with the names as they are: pass it through shown() before it is printed.
std::string processText(const RunningProcess& _process);

}  // namespace qmrkctl
