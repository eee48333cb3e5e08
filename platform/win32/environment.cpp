// SPDX-License-Identifier: MIT
#include "platform/environment.h"

#include "platform/fault.h"
#include "platform/win32/windows_api.h"

namespace platform {

std::size_t environmentVariable(const char* _name, char* _buffer, std::size_t _size) {
  if (injectedFault(Call::environmentVariable) != noError) return 0;
  return ::GetEnvironmentVariableA(_name, _buffer, static_cast<DWORD>(_size));
}

}  // namespace platform
