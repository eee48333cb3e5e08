// SPDX-License-Identifier: MIT
#include "logsetup/rolling_file_appender.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <charconv>
#include <functional>
#include <vector>

#include "platform/native_path.h"

namespace boost::logging {
namespace {

std::string backupName(const std::string& _name, std::int32_t _number) {
  if (_number == 0) return _name;
  return _name + "." + std::to_string(_number);
}

// Above it, a roll lists the folder instead of looking for each file.
constexpr std::int32_t mostLookedFor = 1000;

// The number of a backup by the rest of its name behind that of the log; -1 if it is none.
std::int32_t backupNumber(const std::string& _rest) {
  std::int32_t number = -1;
  if (_rest.empty() || _rest.front() != '.') return -1;
  const std::from_chars_result result = std::from_chars(_rest.data() + 1, _rest.data() + _rest.size(), number);
  return result.ec == std::errc() && "." + std::to_string(number) == _rest ? number : -1;
}

// Finds the numbers of the backups that a roll has to move, from the highest; 0 stands for the log.
// @return false if the folder cannot be listed.
bool listBackups(const std::string& _name, std::int32_t _fileCount, std::vector<std::int32_t>& _numbers) {
  const filesystem::path log(platform::nativePath(_name));
  const std::string name = log.filename().string();
  _numbers = {0};
  system::error_code error;
  filesystem::directory_iterator entry(log.parent_path() / ".", error);
  for (; !error && entry != filesystem::directory_iterator(); entry.increment(error)) {
    const std::string found = entry->path().filename().string();
    if (found.compare(0, name.size(), name) != 0) continue;
    const std::int32_t number = backupNumber(found.substr(name.size()));
    if (number > 0 && number < _fileCount) _numbers.push_back(number);
  }
  std::sort(_numbers.begin(), _numbers.end(), std::greater<>());
  return !error;
}

void moveUp(const std::string& _name, std::int32_t _number) {
  const filesystem::path from(platform::nativePath(backupName(_name, _number)));
  const filesystem::path to(platform::nativePath(backupName(_name, _number + 1)));
  if (filesystem::exists(from)) {
    filesystem::remove(to);
    filesystem::rename(from, to);
  }
}

}  // namespace

rolling_file_appender::rolling_file_appender(const std::string& _fileName, std::int32_t _maxSize,
                                             std::int32_t _fileCount, name_function _nameFn, bool _append)
    : file_appender(_fileName, _nameFn, _append), max_size(_maxSize), file_count(_fileCount) {}

void rolling_file_appender::write(const std::string& _msg) {
  file_appender::write(_msg);
  if (max_size == 0) {
    return;
  }
  const std::int64_t position = file().position();
  if (position < max_size) {
    return;
  }
  file().out.close();
  roll(file().current_name);
  file().open(false);
}

void rolling_file_appender::roll(const std::string& _name) {
  // A limit with some digits too many must not make a statement look for millions of files.
  std::vector<std::int32_t> numbers;
  if (file_count > mostLookedFor && listBackups(_name, file_count, numbers)) {
    for (const std::int32_t number : numbers)
      moveUp(_name, number);
    return;
  }
  for (std::int32_t number = file_count; number > 0; --number)
    moveUp(_name, number - 1);
}

}  // namespace boost::logging
