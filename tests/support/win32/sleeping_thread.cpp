// SPDX-License-Identifier: MIT
#include "tests/support/sleeping_thread.h"

#include "platform/win32/windows_api.h"

namespace testsupport {
namespace {

// The code of the system's calls that wait is this short.
constexpr std::uintptr_t callSize = 32;

bool isInside(std::uintptr_t _address, const char* _call) {
  const auto begin = reinterpret_cast<std::uintptr_t>(::GetProcAddress(::GetModuleHandleA("ntdll.dll"), _call));
  return begin <= _address && _address < begin + callSize;
}

// Whether the thread is at this moment in a call that waits. It is stopped for the look.
bool waits(HANDLE _thread) {
  if (::SuspendThread(_thread) == static_cast<DWORD>(-1)) return false;
  CONTEXT context{};
  context.ContextFlags = CONTEXT_CONTROL;
  const bool known = ::GetThreadContext(_thread, &context) != 0;
  ::ResumeThread(_thread);
  const auto isIn = [&context](const char* _call) { return isInside(context.Rip, _call); };
  return known && (isIn("NtWaitForSingleObject") || isIn("NtWaitForMultipleObjects") ||
                   isIn("NtWaitForAlertByThreadId") || isIn("NtWaitForKeyedEvent"));
}

}  // namespace

bool waitUntilThreadSleeps(std::uint32_t _id) {
  const HANDLE thread = ::OpenThread(THREAD_SUSPEND_RESUME | THREAD_GET_CONTEXT, FALSE, _id);
  if (thread == nullptr) return false;
  const ULONGLONG deadline = ::GetTickCount64() + 30'000;
  bool asleep = waits(thread);
  while (!asleep && ::GetTickCount64() < deadline) {
    ::Sleep(1);
    asleep = waits(thread);
  }
  ::CloseHandle(thread);
  return asleep;
}

}  // namespace testsupport
