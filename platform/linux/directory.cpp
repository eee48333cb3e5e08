// SPDX-License-Identifier: MIT
#include "platform/directory.h"

#include <sys/stat.h>

#include <cerrno>

#include "platform/fault.h"
#include "platform/linux/errno_code.h"
#include "platform/native_path.h"

namespace platform {
namespace {

// The folders are those of logs and records.
constexpr mode_t folderMode = 0750;

}  // namespace

bool createFolder(const std::string& _path, ErrorCode& _error) {
  _error = injectedFault(Call::createDirectory);
  if (_error != noError) return false;
  if (::mkdir(nativePath(_path).c_str(), folderMode) != 0) _error = errnoCode(errno);
  return _error == noError;
}

}  // namespace platform
