// SPDX-License-Identifier: MIT
#include "platform/access.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/fault.h"
#include "platform/native_path.h"

namespace platform {

// The values of the mode are the same in both systems.
static_assert(static_cast<int>(Access::exists) == F_OK);
static_assert(static_cast<int>(Access::write) == W_OK);
static_assert(static_cast<int>(Access::read) == R_OK);
static_assert(static_cast<int>(Access::readWrite) == (R_OK | W_OK));

bool isAccessible(const std::string& _path, Access _mode) {
  if (injectedFault(Call::accessTest) != noError) return false;
  if (_mode == Access::read && injectedFault(Call::readAccessTest) != noError) return false;
  return ::faccessat(AT_FDCWD, nativePath(_path).c_str(), static_cast<int>(_mode), AT_EACCESS) == 0;
}

bool statusMode(const std::string& _path, unsigned int& _mode) {
  if (injectedFault(Call::statusQuery) != noError) return false;
  struct stat status {};
  if (::stat(nativePath(_path).c_str(), &status) != 0) return false;
  _mode = status.st_mode;
  return true;
}

}  // namespace platform
