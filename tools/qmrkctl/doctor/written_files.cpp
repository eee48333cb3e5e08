// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/doctor/written_files.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "tools/system/account.h"
#include "tools/system/open_files.h"
#include "tools/system/path_in_root.h"

namespace qmrkctl {

std::string pathWithoutLinks(const std::string& _root, const std::string& _path) {
  if (!_root.empty()) return toolsystem::pathInRoot(_root, _path).substr(_root.size());
  std::error_code error;
  const std::filesystem::path path = std::filesystem::weakly_canonical(_path, error);
  return error ? _path : path.string();
}

std::optional<std::vector<std::string>> namesOfWritten(std::uint32_t _pid, const std::string& _path) {
  std::optional<std::vector<std::string>> files = toolsystem::filesOpenForWriting(_pid);
  if (files) std::erase_if(*files, [&_path](const std::string& _file) { return !_file.starts_with(_path); });
  return files;
}

std::optional<bool> hasOpenForWriting(std::uint32_t _pid, const std::string& _path) {
  const std::string path = pathWithoutLinks(toolsystem::fileSystemOfProcess(static_cast<int>(_pid)), _path);
  const std::optional<std::vector<std::string>> names = namesOfWritten(_pid, path);
  if (!names) return std::nullopt;
  return std::ranges::find(*names, path) != names->end();
}

}  // namespace qmrkctl
