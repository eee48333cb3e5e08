// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "platform/errors.h"

namespace platform {

/// A handle of a named event or a thread. On Linux it is the number of an entry in a table of the process, never a
/// pointer and never reused: a closed handle is refused, whatever was opened since. Null is not a handle. A forked
/// child has none of its parent's handles.
using Handle = void*;

/// Results of waiting, as WaitForSingleObject gives them.
constexpr std::uint32_t waitObject = 0;
constexpr std::uint32_t waitAbandoned = 128;
constexpr std::uint32_t waitTimeout = 258;
constexpr std::uint32_t waitFailed = 0xFFFFFFFF;

/// The time-out that never expires.
constexpr std::uint32_t waitForever = 0xFFFFFFFF;

/// CloseHandle. What the handle refers to goes on: a thread runs on; an event lives as long as any process holds it.
/// @return false when the handle is not open (lastError: 6), as it is never again once closed.
bool closeHandle(Handle _handle);

/// DuplicateHandle within the process: a second handle of the same event or thread, closed separately.
/// @return null when _handle is not open (lastError: 6).
Handle duplicateHandle(Handle _handle);

/// GetLastError: the error of the calling thread's latest call in handle.h, named_event.h and thread.h. Ask right after
/// that call, because on Windows other system calls change it too.
ErrorCode lastError() noexcept;

/// SetLastError, for a caller that passes an error on after other work.
void setLastError(ErrorCode _error) noexcept;

}  // namespace platform
