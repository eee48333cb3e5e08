// SPDX-License-Identifier: MIT
// A modifier of the application's own: every line of the common log shows the process that wrote it. The library
// connects its modifiers at index 100, time stamp first. One below 100 runs before them, so its text stands behind the
// stamp: [Demo.App.info] 20261121 10:00:00.123 [4711] started

#include <quillmark_logging.h>
#include <boost/logging/logging.hpp>

namespace bl = boost::logging;

static bl::logger info("Demo.App.info");

// Several threads may be inside at once.
void prependProcess(const std::string& /*_logName*/, std::string& _message) {
  _message.insert(0, Quillmark_logging::getFormattedProcessId());
}

int main() {
  bl::add_modifier(bl::get_default_log_manager(), "*", prependProcess, "process", 50);
  if (!Quillmark_logging::initDefaultLogs("process_stamp", false)) return 1;

  QMRK_LOG(info) << "started";
}
