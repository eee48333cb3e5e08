// SPDX-License-Identifier: MIT
#include "platform/process.h"

#include <process.h>

#include "platform/win32/windows_api.h"

namespace platform {

int processId() { return ::_getpid(); }

std::uint32_t threadId() { return ::GetCurrentThreadId(); }

bool isDestroyedBeforeThreads(const void* _object) {
  HMODULE module = nullptr;
  constexpr DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  return ::GetModuleHandleExA(flags, static_cast<LPCSTR>(_object), &module) != 0 &&
         module == ::GetModuleHandleA(nullptr);
}

}  // namespace platform
