// SPDX-License-Identifier: MIT
#include "logsetup/rolling_file_appender.h"

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>

#include "platform/native_path.h"

namespace boost::logging {
namespace {

std::string backupName(const std::string& _name, std::int32_t _number) {
  return _number == 0 ? _name : _name + "." + std::to_string(_number);
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
  for (std::int32_t number = file_count; number > 0; --number) {
    const filesystem::path from(platform::nativePath(backupName(_name, number - 1)));
    const filesystem::path to(platform::nativePath(backupName(_name, number)));
    if (filesystem::exists(from)) {
      filesystem::remove(to);
      filesystem::rename(from, to);
    }
  }
}

}  // namespace boost::logging
