// SPDX-License-Identifier: MIT
#include "boost/logging/callables.hpp"
#include "logmanager/appenders/batch_handle.h"

namespace boost::logging {

ts_appender::ts_appender(const appender& _wrapped, int _sleepMs)
    : handle_(new detail::BatchHandle(_wrapped, _sleepMs)) {}

void ts_appender::operator()(const std::string& /*_logName*/, const std::string& _message) const {
  handle_->writer().append(_message);
}

}  // namespace boost::logging
