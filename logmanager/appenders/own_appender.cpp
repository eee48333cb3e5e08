// SPDX-License-Identifier: MIT
#include "logmanager/appenders/own_appender.h"

namespace boost::logging::detail {

OwnAppender::OwnAppender(const appender& _appender) {
  if (const auto* const toFile = _appender.target<write_to_file>()) file_ = toFile->file_;
  if (const auto* const toThread = _appender.target<ts_appender>()) handle_ = toThread->handle_;
}

}  // namespace boost::logging::detail
