// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "platform/handle.h"

namespace platform {

/// The body of a thread. It receives the argument of createThread; its result is the exit code.
using ThreadRoutine = std::uint32_t (*)(void*);

/// The exit code of a thread that has not ended (STILL_ACTIVE).
constexpr std::uint32_t stillActive = 259;

/// CreateThread with default security, default stack and flags 0: the thread runs at once.
/// @param _id receives the id of the thread, never 0, before the call returns; untouched on failure.
/// @return the handle, to be closed by closeHandle; null on failure, with the reason in lastError.
Handle createThread(ThreadRoutine _routine, void* _argument, std::uint32_t& _id);

/// WaitForSingleObject on a thread: waits until it has ended and the system has released it.
/// @param _milliseconds the time-out; 0 only asks, waitForever waits without one.
/// @return waitObject, waitTimeout, or waitFailed with the reason in lastError.
std::uint32_t waitForThread(Handle _thread, std::uint32_t _milliseconds);

/// TerminateThread. On Linux a thread ends only inside waitForEvent: it finishes what it is doing until it waits, and
/// this call returns when it has ended (at once when a thread terminates itself, which then runs on to its next wait).
/// Its stack is unwound. The event handles that it has opened and not closed are closed, since nobody else knows them;
/// the process stays a user of those events, by one reference per name. On Windows the thread is stopped wherever it
/// is, and its handles stay open.
/// @return false when the handle is not an open one of a thread (lastError: 6) or the thread has ended (lastError: 5).
bool terminateThread(Handle _thread, std::uint32_t _exitCode);

/// GetExitCodeThread.
/// @param _code receives the exit code, stillActive for a running thread; untouched on failure.
/// @return false when the handle is not an open one of a thread (lastError: 6).
bool threadExitCode(Handle _thread, std::uint32_t& _code);

}  // namespace platform
