// SPDX-License-Identifier: MIT
#include "platform/access.h"

#include <io.h>
#include <sys/stat.h>
#include <sys/types.h>

#include "platform/fault.h"

namespace platform {
namespace {

// The run-time finds no folder by a name that ends in a separator, except for the root of a drive.
std::string withoutFinalSeparators(const std::string& _path) {
  const std::size_t last = _path.find_last_not_of("\\/");
  if (last == std::string::npos || _path[last] == ':') return _path;
  return _path.substr(0, last + 1);
}

}  // namespace

bool isAccessible(const std::string& _path, Access _mode) {
  if (injectedFault(Call::accessTest) != noError) return false;
  if (_mode == Access::read && injectedFault(Call::readAccessTest) != noError) return false;
  return ::_access(_path.c_str(), static_cast<int>(_mode)) == 0;
}

bool statusMode(const std::string& _path, unsigned int& _mode) {
  if (injectedFault(Call::statusQuery) != noError) return false;
  struct _stat64i32 status {};
  if (::_stat64i32(withoutFinalSeparators(_path).c_str(), &status) != 0) return false;
  _mode = status.st_mode;
  return true;
}

}  // namespace platform
