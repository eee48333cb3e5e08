// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/qmrkctl/common_options.h"
#include "tools/status/process_status.h"
#include "tools/system/process_list.h"

namespace qmrkctl {

/// A process that has the library loaded, and what it shows of its logging.
struct RunningProcess {
  toolsystem::ProcessFacts facts;
  /// The names that it gave to initDefaultLogs, with ", " between them; the name of its program when there is none.
  std::string application;
  /// Its status page; none: there is no page, it cannot be read, or the process was stopped while it wrote it.
  std::optional<ProcessStatus> status;

  std::uint32_t pid() const { return facts.pid; }
};

/// Which processes are wanted.
struct ProcessQuery {
  std::optional<std::uint32_t> pid;
  std::string user;  ///< name or number; empty: the running user unless allUsers
  bool allUsers = false;
  std::string application;  ///< empty: any
};

/// As the options of the command line say.
ProcessQuery queryOf(const Options& _options);

struct RunningProcesses {
  std::vector<RunningProcess> found;  ///< in the order of their ids
  /// Those of other users that have the library but were not wanted. Where they cannot be looked at, only those that
  /// listen count.
  std::size_t ofOthers = 0;
};

/// Finds running processes and reads their pages.
RunningProcesses runningProcesses(const ProcessQuery& _query);

/// Whether a listener of the process waits for the event of that name, as far as can be seen.
bool listensTo(const RunningProcess& _process, const std::string& _event);

}  // namespace qmrkctl
