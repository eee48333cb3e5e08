// SPDX-License-Identifier: MIT
#include "tools/system/named_path.h"

#include <fcntl.h>
#include <unistd.h>

namespace toolsystem {

NamedPath::NamedPath(const std::string& _path) : path_(_path) {
  if (_path.find('\\') == std::string::npos) return;
  // Neither reads nor waits, whatever stands there.
  file_ = ::open(_path.c_str(), O_PATH | O_CLOEXEC);
  path_ = file_ == -1 ? "" : "/proc/self/fd/" + std::to_string(file_);
}

NamedPath::~NamedPath() {
  if (file_ != -1) ::close(file_);
}

}  // namespace toolsystem
