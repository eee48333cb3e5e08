// SPDX-License-Identifier: MIT
#include "platform/standard_error.h"

#include "platform/win32/windows_api.h"

namespace platform {

void writeStandardError(const std::string& _text) {
  DWORD written = 0;
  ::WriteFile(::GetStdHandle(STD_ERROR_HANDLE), _text.data(), static_cast<DWORD>(_text.size()), &written, nullptr);
}

}  // namespace platform
