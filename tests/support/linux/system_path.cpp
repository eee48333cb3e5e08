// SPDX-License-Identifier: MIT
#include "tests/support/system_path.h"

#include <algorithm>
#include <system_error>

namespace testsupport {

std::filesystem::path systemPath(const std::string& _path) {
  std::string path = _path;
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

std::string pathText(const std::filesystem::path& _path) { return _path.string(); }

bool removeAtOnce(const std::filesystem::path& _path) {
  std::error_code error;
  std::filesystem::remove_all(_path, error);
  return !error;
}

}  // namespace testsupport
