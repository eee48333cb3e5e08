// SPDX-License-Identifier: MIT
#include "tests/support/process_resources.h"

#include <ostream>

#include "platform/win32/windows_api.h"
// After windows_api.h, on whose types it relies.
#include <tlhelp32.h>

namespace testsupport {

// Only the threads can be compared: the run-time keeps handles of its own, and a thread that is terminated leaves its
// handles open.
ProcessResources processResources() {
  ProcessResources resources;
  const HANDLE snapshot = ::CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 thread{};
  thread.dwSize = sizeof thread;
  for (BOOL more = ::Thread32First(snapshot, &thread); more; more = ::Thread32Next(snapshot, &thread)) {
    resources.threads += thread.th32OwnerProcessID == ::GetCurrentProcessId() ? 1 : 0;
  }
  ::CloseHandle(snapshot);
  return resources;
}

std::ostream& operator<<(std::ostream& _stream, const ProcessResources& _resources) {
  return _stream << _resources.threads << " threads";
}

}  // namespace testsupport
