// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/errors.h"
#include "tools/system/process_list.h"

namespace toolsystem {

/// A place that may hold an event: each user has events of their own; on Windows, each session.
struct EventPlace {
  std::string text;   ///< for people: "user root", "user app with a /dev/shm of its own (process 4711)", "session 2"
  std::string space;  ///< ProcessFacts::space of the processes that see it; on Windows empty for this session
  std::string root;   ///< of such a process, if it sees other shared memory; else empty
  std::uint32_t folderUserId = 0;  ///< the user, as the folder's name gives it
  std::uint32_t owner = 0;         ///< the same user, as the caller sees it
  std::string prefix;              ///< of the event's name on Windows, such as "Global\"
};

/// Which places are wanted besides those of the processes.
struct EventScope {
  bool isOwnWanted = true;
  bool areAllWanted = false;
  std::optional<int> session;  ///< Windows only
};

/// The places of the processes, and those that the scope names even if no process is known there, each once. On Windows
/// the places are the session that the scope names or, without one, the caller's and the one of all sessions.
std::vector<EventPlace> eventPlaces(const std::vector<ProcessFacts>& _processes, const EventScope& _scope);

/// The folder of the events and pages of a process's user, where the library does not use it because it is not that
/// user's alone: "/dev/shm/qmrk-5, which belongs to root, mode 0755". Empty if it is missing or right, and on Windows.
std::string distrustedFolder(const ProcessFacts& _process);

/// Sets the event there and wakes everyone who waits for it.
/// @return noError; errorFileNotFound if nobody holds such an event; errorInvalidName or errorFilenameTooLong if no
///   event can have that name; errorAccessDenied; or another error of the system.
platform::ErrorCode setEventAt(const EventPlace& _place, const std::string& _event);

}  // namespace toolsystem
