// SPDX-License-Identifier: MIT
#include "logsetup/logfile.h"

#include "platform/native_path.h"

namespace boost::logging {

logfile::logfile(const std::string& _fileName, name_function _nameFn) : name_fn(_nameFn), file_name(_fileName) {}

logfile::~logfile() { out.close(); }

void logfile::open(bool _append) {
  out.clear();
  current_name = name_fn != nullptr ? name_fn(file_name) : file_name;
  // Appending alone would leave the position at 0 until the first byte is written.
  const auto mode = _append ? std::ios::out | std::ios::app | std::ios::ate : std::ios::out | std::ios::trunc;
  out.open(platform::nativePath(current_name), mode);
}

}  // namespace boost::logging
