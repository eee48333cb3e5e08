// SPDX-License-Identifier: MIT
#include "tools/system/end_request.h"

#include "platform/win32/windows_api.h"

namespace toolsystem {
namespace {

// Set when the request comes; lives as long as the program.
HANDLE requested() {
  static const HANDLE event = ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
  return event;
}

BOOL WINAPI request(DWORD /*_kind*/) {
  ::SetEvent(requested());
  return TRUE;
}

}  // namespace

void catchEndRequests() {
  requested();
  ::SetConsoleCtrlHandler(request, TRUE);
}

void forgetEndRequest() { ::ResetEvent(requested()); }

bool isEndRequested() { return ::WaitForSingleObject(requested(), 0) == WAIT_OBJECT_0; }

bool sleepUnlessEnded(std::chrono::microseconds _time) {
  const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(_time);
  return ::WaitForSingleObject(requested(), static_cast<DWORD>(milliseconds.count())) != WAIT_OBJECT_0;
}

}  // namespace toolsystem
