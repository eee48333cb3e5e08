// SPDX-License-Identifier: MIT
#include "platform/directory.h"

#include "platform/fault.h"
#include "platform/win32/last_error.h"
#include "platform/win32/windows_api.h"

namespace platform {

bool createFolder(const std::string& _path, ErrorCode& _error) {
  _error = injectedFault(Call::createDirectory);
  if (_error != noError) return false;
  if (::CreateDirectoryA(_path.c_str(), nullptr)) return true;
  _error = lastErrorCode();
  return false;
}

}  // namespace platform
