// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "platform/errors.h"
#include "platform/handle.h"

namespace platform {

/// The system calls that a test can make fail.
enum class Call {
  shellFolder,
  environmentVariable,
  consoleWrite,
  accessTest,
  readAccessTest,
  statusQuery,
  createDirectory,
  openForReading,
  read,
  openForWriting,
  write,
  openForAppending,
  append,
  /// Asked after the bytes have reached the file; the answer is ignored.
  appended,
  closeFile,
  clock,
  systemVersion,
  registry,
  createThread,
  beginThread,  ///< Linux: on the new thread, for which its creator waits; cannot fail
  openEvent,
  openEventFile,   ///< Linux: between the folder and the file in it
  awaitEventGate,  ///< Linux: before each pause for a process that blocks the event; cannot fail
  awaitLease,      ///< Linux: before each pause for a process that has a lease on a file; cannot fail
  waitEvent,       ///< waitTimeout and waitAbandoned, too, which are then what the wait returns
  setEvent,
  resetEvent,
  closeHandle,
  createStatusPage,
  shareWord,        ///< Linux
  awaitSharedWord,  ///< before each pause for a process that is to change the word; cannot fail
  moduleVersion,
};

/// Asked by the functions of platform/ before a call in the list above: noError, or the code with which the call has to
/// fail without being made. The product links no_fault.cpp, whose answer is always noError; the tests link a plan that
/// can make the n-th call fail (tests/support/fault_plan.h).
ErrorCode injectedFault(Call _call) noexcept;

/// What a wait returns for such a code.
constexpr std::uint32_t waitResultOfFault(ErrorCode _code) {
  return _code == waitTimeout || _code == waitAbandoned ? _code : waitFailed;
}

}  // namespace platform
