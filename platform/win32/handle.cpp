// SPDX-License-Identifier: MIT
#include "platform/handle.h"

#include "platform/fault.h"
#include "platform/win32/windows_api.h"

namespace platform {

static_assert(waitObject == WAIT_OBJECT_0);
static_assert(waitAbandoned == WAIT_ABANDONED);
static_assert(waitTimeout == WAIT_TIMEOUT);
static_assert(waitFailed == WAIT_FAILED);
static_assert(waitForever == INFINITE);

bool closeHandle(Handle _handle) {
  ::SetLastError(injectedFault(Call::closeHandle));
  return ::GetLastError() == noError && ::CloseHandle(_handle) == TRUE;
}

Handle duplicateHandle(Handle _handle) {
  ::SetLastError(noError);
  const HANDLE process = ::GetCurrentProcess();
  HANDLE duplicate = nullptr;
  ::DuplicateHandle(process, _handle, process, &duplicate, 0, FALSE, DUPLICATE_SAME_ACCESS);
  return duplicate;
}

ErrorCode lastError() noexcept { return ::GetLastError(); }

void setLastError(ErrorCode _error) noexcept { ::SetLastError(_error); }

}  // namespace platform
