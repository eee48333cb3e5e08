// SPDX-License-Identifier: MIT
#include "platform/native_path.h"

#include <algorithm>

namespace platform {

std::string nativePath(const std::string& _path) {
  std::string native = _path;
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

}  // namespace platform
