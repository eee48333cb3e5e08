// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/errors.h"
#include "tools/system/process_list.h"

namespace toolsystem {

/// Where an event of some name may be: every user has events of his own, on Windows every session.
struct EventPlace {
  std::string text;   ///< for people: "user root", "user app with a /dev/shm of its own (process 4711)", "session 2"
  std::string space;  ///< that of the processes that see it; empty on Windows
  std::string root;   ///< of such a process, when it sees other shared memory; else empty
  std::uint32_t folderUserId = 0;  ///< the user as the name of the folder has it
  std::uint32_t owner = 0;         ///< the same user as the caller sees it
  std::string prefix;              ///< of the event's name on Windows, such as "Global\"
};

/// Whose events are wanted.
struct EventScope {
  bool isOwnWanted = true;
  bool areAllWanted = false;
  std::optional<int> session;  ///< Windows only
};

/// The places of the processes, and those that the scope names although no process is known there.
std::vector<EventPlace> eventPlaces(const std::vector<ProcessFacts>& _processes, const EventScope& _scope);

/// Sets the event there and wakes all who wait for it.
/// @return noError; errorFileNotFound when nobody holds such an event; errorInvalidName or errorFilenameTooLong for a
///   name that no event can have; errorAccessDenied; or whatever else is in the way.
platform::ErrorCode setEventAt(const EventPlace& _place, const std::string& _event);

}  // namespace toolsystem
