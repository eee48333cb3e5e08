// SPDX-License-Identifier: MIT
#include "logmanager/own_appender.h"

#include "logmanager/batch_handle.h"

namespace boost::logging::detail {

OwnAppender::OwnAppender(const appender& _appender) {
  if (const auto* const toFile = _appender.target<write_to_file>()) file_ = toFile->file_.get();
  if (const auto* const toThread = _appender.target<ts_appender>()) writer_ = &toThread->handle_->writer();
}

}  // namespace boost::logging::detail
