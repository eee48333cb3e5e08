// SPDX-License-Identifier: MIT
#include "logsetup/logfile.h"

#include "logsetup/fork_count.h"
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
  written_ = 0;
  hasLineEnd_ = false;
  isAppending_ = _append;
  isConfirmed_ = false;
  forksAtOpen_ = Quillmark_logging::forkCount();
}

void logfile::write(const std::string& _msg) {
  out.write(_msg.data(), static_cast<std::streamsize>(_msg.size()));
  out.flush();
  written_ += static_cast<std::int64_t>(_msg.size());
  if (!isConfirmed_) hasLineEnd_ = hasLineEnd_ || _msg.find('\n') != std::string::npos;
}

std::int64_t logfile::position() {
  if (isCounted()) return out.is_open() && !out.fail() ? written_ : -1;
  const std::int64_t position = out.tellp();
  isConfirmed_ = hasLineEnd_ && position == written_;
  return position;
}

bool logfile::isCounted() const {
  return isConfirmed_ && !isAppending_ && Quillmark_logging::forkCount() == forksAtOpen_;
}

}  // namespace boost::logging
