// SPDX-License-Identifier: MIT
#include "platform/native_path.h"
#include "quillmark_logging.h"

namespace Quillmark_logging {

std::string nativePath(const std::string& _path) { return platform::nativePath(_path); }

}  // namespace Quillmark_logging
