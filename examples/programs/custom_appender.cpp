// SPDX-License-Identifier: MIT
// An appender of the application's own: errors also go to the screen. It gets finished lines, stamp and line end
// included. It stays connected when the logs are set up again, since the library removes by name what it has connected.

#include <quillmark_logging.h>
#include <boost/logging/logging.hpp>
#include <iostream>

namespace bl = boost::logging;

static bl::logger info("Demo.App.info");
static bl::logger errors("Demo.App.error");

// Never entered by two threads at the same time.
void toStandardError(const std::string& /*_logName*/, const std::string& _message) { std::cerr << _message; }

int main() {
  if (!Quillmark_logging::initDefaultLogs("custom_appender", false)) return 1;
  bl::add_appender(bl::get_default_log_manager(), "*.error", toStandardError, "errors on screen", 200);

  QMRK_LOG(info) << "looking for disk " << 3;
  QMRK_LOG(errors) << "disk " << 3 << " failed";
}
