// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "boost/logging/logging.hpp"
#include "logmanager/callable_set.h"
#include "logmanager/log.h"

namespace testsupport {

/// A log that passes everything to the appender.
class ConnectedLog {
 public:
  ConnectedLog(const std::string& _name, const boost::logging::appender& _appender) : log_(_name) {
    log_.callables = new boost::logging::detail::CallableSet({boost::logging::detail::makeAppender(_appender, "A", 0)});
  }
  boost::logging::detail::Log& operator*() { return log_; }

 private:
  boost::logging::detail::Log log_;
};

}  // namespace testsupport
