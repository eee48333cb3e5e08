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

/// A process that has loaded the library, and what it shows of its logging.
struct RunningProcess {
  toolsystem::ProcessFacts facts;
  /// The names that it gave to initDefaultLogs, separated by ", "; the name of its program if there are none.
  std::string application;
  /// Its status page; no value: there is none, it cannot be read, or the process was stopped while writing it.
  std::optional<ProcessStatus> status;

  std::uint32_t pid() const { return facts.pid; }
};

/// Which processes are wanted.
struct ProcessQuery {
  std::optional<std::uint32_t> pid;
  std::string user;  ///< name or number; empty: the current user, unless allUsers
  bool allUsers = false;
  std::string application;  ///< empty: any
};

/// The query that the options of the command line express.
ProcessQuery queryOf(const Options& _options);

struct RunningProcesses {
  std::vector<RunningProcess> found;  ///< in the order of their ids
  /// How many processes of other users have the library but are not wanted. Where the caller cannot examine them, only
  /// those that listen are counted.
  std::size_t ofOthers = 0;
};

/// Finds running processes and reads their pages.
RunningProcesses runningProcesses(const ProcessQuery& _query);

/// Keeps only those that use a CA, as far as that is known; all, if it is empty.
void keepThoseOf(const std::string& _ca, std::vector<RunningProcess>& _processes);

/// Whether a listener of the process waits for the event of that name, as far as the caller can see.
bool listensTo(const RunningProcess& _process, const std::string& _event);

}  // namespace qmrkctl
