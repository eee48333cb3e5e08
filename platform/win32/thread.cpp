// SPDX-License-Identifier: MIT
#include "platform/thread.h"

#include <memory>

#include "platform/fault.h"
#include "platform/win32/windows_api.h"

namespace platform {
namespace {

static_assert(stillActive == STILL_ACTIVE);

struct Start {
  ThreadRoutine routine;
  void* argument;
};

// The calling convention and result of the system around a routine.
DWORD WINAPI run(void* _start) {
  std::unique_ptr<Start> owned(static_cast<Start*>(_start));
  const Start start = *owned;
  // Before the routine, in which the thread may be terminated.
  owned.reset();
  return start.routine(start.argument);
}

}  // namespace

Handle createThread(ThreadRoutine _routine, void* _argument, std::uint32_t& _id) {
  ::SetLastError(injectedFault(Call::createThread));
  if (::GetLastError() != noError) return nullptr;
  auto start = std::make_unique<Start>(Start{_routine, _argument});
  DWORD id = 0;
  const HANDLE thread = ::CreateThread(nullptr, 0, run, start.get(), 0, &id);
  if (thread == nullptr) return nullptr;
  // The new thread frees it.
  static_cast<void>(start.release());
  _id = id;
  ::SetLastError(noError);
  return thread;
}

std::uint32_t waitForThread(Handle _thread, std::uint32_t _milliseconds) {
  ::SetLastError(noError);
  return ::WaitForSingleObject(_thread, _milliseconds);
}

bool terminateThread(Handle _thread, std::uint32_t _exitCode) {
  // Wine would give a thread that has ended another exit code; Windows denies it.
  const bool hasEnded = waitForThread(_thread, 0) == waitObject;
  ::SetLastError(hasEnded ? errorAccessDenied : noError);
  return !hasEnded && ::TerminateThread(_thread, _exitCode) != FALSE;
}

bool threadExitCode(Handle _thread, std::uint32_t& _code) {
  ::SetLastError(noError);
  DWORD code = 0;
  if (!::GetExitCodeThread(_thread, &code)) return false;
  _code = code;
  return true;
}

}  // namespace platform
