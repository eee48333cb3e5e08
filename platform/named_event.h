// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/handle.h"

namespace platform {

// A system-wide event with manual reset: it stays set, and lets every waiter through, until it is reset. All processes
// of the same user know it by its name. It lives as long as any of them holds a handle of it; the kernel releases those
// of a killed process.
//
// On Linux a name has 1 to 200 letters, digits, ".", "_" and "-", and does not begin with "."; others are refused
// (lastError: 123, or 206 when too long). The event is a file of that name in /dev/shm/qmrk-<effective user id>, a
// folder that must belong to the user with mode 0700. When that file or folder is removed from outside, whoever holds
// the event joins the one that took its place: at the next call, or after 2 s inside a wait.
// Another process that is stopped while it creates or closes the event delays nobody longer than 100 ms.

/// CreateEventA with default security, manual reset, not set: creates the event, or opens the one that exists.
/// @return the handle, with lastError 183 when the event existed, else 0; null on failure, with the reason in
///   lastError: on Linux 112 when the shared memory is full, 5 when folder or file belong to another user or are open
///   to others.
Handle createEvent(const std::string& _name);

/// OpenEventA for setting and waiting: opens an event that some process holds, and never creates one.
/// @return the handle; null when nobody holds such an event (lastError: 2) or on failure.
Handle openEvent(const std::string& _name);

/// SetEvent: sets the event and wakes every thread that waits for it in any process, even if it is reset at once.
/// @return false when the handle is not an open one of an event (lastError: 6).
bool setEvent(Handle _event);

/// ResetEvent.
/// @return false when the handle is not an open one of an event (lastError: 6).
bool resetEvent(Handle _event);

/// How often the event was set since somebody began to use it, for people: on Linux modulo 2^31, and without lastError;
/// on Windows, where the system does not tell, 0.
std::uint32_t settingsOf(Handle _event);

/// WaitForSingleObject on an event: waits until it is set. On Linux this is the only place where a thread made by
/// createThread can be terminated, even if the event is already set. The stack is then unwound from here, so no frame
/// above may be noexcept or swallow everything it catches.
/// @param _milliseconds the time-out; 0 only asks, waitForever waits without one.
/// @return waitObject, waitTimeout, or waitFailed with the reason in lastError.
std::uint32_t waitForEvent(Handle _event, std::uint32_t _milliseconds);

}  // namespace platform
