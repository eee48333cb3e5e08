// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "quillmark_logging_names.h"
#include "tools/logs/log_files.h"
#include "tools/qmrkctl/check/checks.h"

namespace qmrkctl {
namespace {

namespace names = Quillmark_logging;
namespace fs = std::filesystem;

// How many backups a rotated log has; 0: there is no rotation.
long long numberOfBackups(const Configuration& _configuration) {
  if (!_configuration.isOn(names::SPEC_LOG_ROTATION)) return 0;
  const std::string* const limit = _configuration.value(names::SPEC_LOG_FILE_LIMIT);
  const std::string* const number = _configuration.value(names::SPEC_NR_OF_LOG_FILES);
  // No log is ever full.
  if (limit != nullptr && *limit == "1") return 0;
  const bool areSet = limit != nullptr && number != nullptr;
  return std::strtoll(areSet ? number->c_str() : names::DEFAULT_SPEC_NR_OF_LOG_FILES, nullptr, 10) - 1;
}

// The rotation removes files and empty folders.
bool isFilledFolder(const fs::directory_entry& _entry) {
  std::error_code error;
  if (_entry.symlink_status(error).type() != fs::file_type::directory) return false;
  return !fs::is_empty(_entry.path(), error) && !error;
}

// The number of "x_log.txt.2"; 0 for any other name.
long long backupNumberIn(const std::string& _name) {
  const std::string suffix = names::APPL_SPEC_LOG_FILE_SUFFIX;
  const std::size_t begin = _name.rfind(suffix + ".");
  if (begin == std::string::npos) return 0;
  return static_cast<long long>(backupNumber(_name, _name.substr(0, begin + suffix.size())));
}

}  // namespace

void checkBackups(const Viewpoint& _viewpoint, const Configuration& _configuration, Findings& _findings) {
  const long long backups = numberOfBackups(_configuration);
  if (backups < 1 || !_configuration.logs || !_configuration.failure.empty()) return;
  const std::string& folder = _configuration.logs->applicationFolder;
  std::vector<std::string> found;
  std::error_code error;
  for (fs::directory_iterator entry(reachedPath(_viewpoint, folder), error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    const long long number = backupNumberIn(name);
    if (number > 0 && number <= backups && isFilledFolder(*entry)) found.push_back(name);
  }
  std::sort(found.begin(), found.end());
  for (const std::string& name : found) {
    _findings.push_back(findingOf("Q511", placeOf(std::string(folder).append("\\").append(name)),
                                  "there is a folder in place of the backup of a log"));
  }
}

}  // namespace qmrkctl
