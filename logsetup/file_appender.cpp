// SPDX-License-Identifier: MIT
#include "logsetup/file_appender.h"

namespace boost::logging {

file_appender::file_appender(const std::string& _fileName, name_function _nameFn, bool _append)
    : file_(std::make_shared<logfile>(_fileName, _nameFn)) {
  file_->open(_append);
}

file_appender::~file_appender() = default;

void file_appender::operator()(const std::string& /*_logName*/, const std::string& _msg) { write(_msg); }

void file_appender::write(const std::string& _msg) { file_->write(_msg); }

}  // namespace boost::logging
