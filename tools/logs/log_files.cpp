// SPDX-License-Identifier: MIT
#include "tools/logs/log_files.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <functional>
#include <map>
#include <set>

#include "platform/native_path.h"
#include "quillmark_logging_names.h"

namespace qmrkctl {
namespace {

namespace fs = boost::filesystem;

std::vector<std::string> namesInFolder(const std::string& _folder) {
  std::vector<std::string> names;
  boost::system::error_code error;
  fs::directory_iterator entry(platform::nativePath(_folder), error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error))
    names.push_back(entry->path().filename().string());
  return names;
}

}  // namespace

unsigned long backupNumber(std::string_view _name, std::string_view _logName) {
  constexpr std::size_t mostDigits = 9;
  if (!_name.starts_with(_logName)) return 0;
  const std::string_view rest = _name.substr(_logName.size());
  // The writer pads no number.
  if (rest.size() < 2 || rest.size() > mostDigits + 1 || rest[0] != '.' || rest[1] == '0') return 0;
  const std::string_view digits = rest.substr(1);
  if (!std::ranges::all_of(digits, [](char _c) { return _c >= '0' && _c <= '9'; })) return 0;
  return std::stoul(std::string(digits));
}

std::vector<std::string> filesOfLog(const std::string& _path) {
  const std::size_t separator = _path.find_last_of("\\/");
  const std::string folder = separator == std::string::npos ? "." : _path.substr(0, separator + 1);
  const std::string logName = separator == std::string::npos ? _path : _path.substr(separator + 1);
  std::map<unsigned long, std::string, std::greater<>> byNumber;
  for (const std::string& name : namesInFolder(folder)) {
    const unsigned long number = backupNumber(name, logName);
    if (number > 0 || name == logName) byNumber[number] = _path + name.substr(logName.size());
  }
  std::vector<std::string> files;
  files.reserve(byNumber.size());
  for (const auto& [number, file] : byNumber)
    files.push_back(file);
  return files;
}

std::vector<std::string> applicationLogsIn(const std::string& _folder) {
  const std::string suffix = Quillmark_logging::APPL_SPEC_LOG_FILE_SUFFIX;
  std::set<std::string> logs;
  for (const std::string& name : namesInFolder(_folder)) {
    const std::size_t end = name.rfind(suffix);
    if (end == std::string::npos) continue;
    const std::string logName = name.substr(0, end + suffix.size());
    if (name == logName || backupNumber(name, logName) > 0) logs.insert(name.substr(0, end));
  }
  return {logs.begin(), logs.end()};
}

}  // namespace qmrkctl
