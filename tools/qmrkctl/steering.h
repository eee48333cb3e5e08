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

// Which processes a command addresses, and where their events are.

/// The processes that the options name. If they name none, root addresses those of every user, because most listeners
/// are daemons of other users.
ProcessQuery steeredProcesses(const Options& _options);

/// Whether the options name a user who is not known; says so. Any number will do, since a process can run under an id
/// that has no name.
bool refusesUser(const Options& _options);

/// Where the events of the processes are, and those of the users that the query names.
/// @param _session of Windows; no value: the caller's, and the events that all sessions share.
std::vector<toolsystem::EventPlace> placesOf(const ProcessQuery& _query, const std::vector<RunningProcess>& _processes,
                                             std::optional<int> _session = std::nullopt);

/// The hash of the class list that the process names on its page, as it is now; no value if it is unknown.
std::optional<std::uint64_t> hashOfList(const RunningProcess& _process);

/// The path, in the system's form, by which this program reaches a file of the process.
/// @param _path in the library's form.
std::string reachedPathOf(const RunningProcess& _process, const std::string& _path);

/// Whether a process applies that class list when its event is set, as far as its page says; false without a page.
/// @param _configurations receives what has to be read, for later calls.
bool follows(const RunningProcess& _process, const ClassListPlace& _place, ProcessConfigurations& _configurations);

}  // namespace qmrkctl
