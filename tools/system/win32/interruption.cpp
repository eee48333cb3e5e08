// SPDX-License-Identifier: MIT
#include "tools/system/interruption.h"

#include <atomic>

#include "platform/win32/windows_api.h"

namespace toolsystem {
namespace {

std::atomic<bool> wasInterrupted = false;

// Called on a thread of its own.
BOOL WINAPI onInterruption(DWORD _event) {
  if (_event != CTRL_C_EVENT && _event != CTRL_BREAK_EVENT) return FALSE;
  wasInterrupted = true;
  return TRUE;
}

}  // namespace

void catchInterruption() { ::SetConsoleCtrlHandler(onInterruption, TRUE); }

Pause pauseFor(int _milliseconds) {
  if (!wasInterrupted) ::Sleep(static_cast<DWORD>(_milliseconds));
  return wasInterrupted ? Pause::interrupted : Pause::over;
}

}  // namespace toolsystem
