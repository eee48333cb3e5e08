// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/qmrkctl/class_list_file.h"
#include "tools/qmrkctl/doctor/process_configurations.h"
#include "tools/qmrkctl/running_processes.h"
#include "tools/system/event_place.h"

namespace qmrkctl {

// Which processes a command steers, and where.

/// Without a choice root means everybody, since the listeners of a machine are daemons of other users.
ProcessQuery steeredProcesses(const Options& _options);

/// Whether there is a user of that name, or the name is a number, which any process may have.
bool isKnownUser(const std::string& _user);

/// Where the events of the processes are, and those of the users who were asked for.
std::vector<toolsystem::EventPlace> placesOf(const ProcessQuery& _query, const std::vector<RunningProcess>& _processes,
                                             std::optional<int> _session = std::nullopt);

/// Of the class list that a process would read now; no value where it cannot be told.
std::optional<std::uint64_t> hashOfList(const RunningProcess& _process);

/// The path by which this program reaches what the process sees at a path of the library's form.
std::string reachedPathOf(const RunningProcess& _process, const std::string& _path);

/// Whether a process applies that class list when its event is set, as far as its page tells.
/// @param _configurations what was read for other processes, which may share it.
bool follows(const RunningProcess& _process, const ClassListPlace& _place, ProcessConfigurations& _configurations);

}  // namespace qmrkctl
