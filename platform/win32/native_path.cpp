// SPDX-License-Identifier: MIT
#include "platform/native_path.h"

namespace platform {

std::string nativePath(const std::string& _path) { return _path; }

}  // namespace platform
