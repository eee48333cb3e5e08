// SPDX-License-Identifier: MIT
#pragma once

#include "platform/errors.h"

namespace platform {

/// The calls of the seam that a test can make fail.
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
  closeFile,
  clock,
  systemVersion,
  registry,
  createThread,
  openEvent,
  openEventFile,   ///< Linux: between the folder and the file in it
  awaitEventGate,  ///< Linux: before each pause for a process that blocks the event; cannot fail
  waitEvent,
  setEvent,
  resetEvent,
  closeHandle,
  moduleVersion,
};

/// Asked by every function of the seam before it calls the system: noError, or the code with which the call has to fail
/// without having been made. The product links no_fault.cpp, whose answer is always noError; the tests link a plan that
/// can make the n-th call fail (tests/support/fault_plan.h).
ErrorCode injectedFault(Call _call) noexcept;

}  // namespace platform
