// SPDX-License-Identifier: MIT
#include "platform/access.h"

#include <io.h>
#include <sys/stat.h>
#include <sys/types.h>

#include "platform/fault.h"

namespace platform {

bool isAccessible(const std::string& _path, Access _mode) {
  if (injectedFault(Call::accessTest) != noError) return false;
  return ::_access(_path.c_str(), static_cast<int>(_mode)) == 0;
}

bool statusMode(const std::string& _path, unsigned int& _mode) {
  if (injectedFault(Call::statusQuery) != noError) return false;
  struct _stat64i32 status {};
  if (::_stat64i32(_path.c_str(), &status) != 0) return false;
  _mode = status.st_mode;
  return true;
}

}  // namespace platform
