// SPDX-License-Identifier: MIT
#include "logsetup/logfile.h"

#include "logsetup/file_status.h"

namespace boost::logging {

logfile::logfile(const std::string& _fileName, name_function _nameFn) : name_fn(_nameFn), file_name(_fileName) {}

logfile::~logfile() { out.close(); }

void logfile::open(bool _append) {
  using Mode = Quillmark_logging::OutputFileStream::Mode;
  out.clear();
  current_name = name_fn != nullptr ? name_fn(file_name) : file_name;
  out.open(current_name, _append ? Mode::append : Mode::truncate);
  if (out.is_open()) Quillmark_logging::noteOpenedFile(file_name);
}

void logfile::reopen() {
  out.close();
  open(true);
}

void logfile::write(const std::string& _msg) {
  out.write(_msg.data(), static_cast<std::streamsize>(_msg.size()));
  // What is not buffered needs no flush.
  if (!out.good()) Quillmark_logging::noteLostLine(file_name, out.error());
}

std::int64_t logfile::position() { return out.tellp(); }

}  // namespace boost::logging
