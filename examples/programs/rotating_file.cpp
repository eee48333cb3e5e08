// SPDX-License-Identifier: MIT
// A log file of the application's own beside the common log: "Application logs/rotating_file_log.txt". With
// SPEC_LOG_ROTATION=TRUE it becomes "rotating_file_log.txt.1" when it is full, and a new one is begun.

#include <quillmark_logging.h>
#include <boost/logging/logging.hpp>

static boost::logging::logger measured("Demo.App.measured");

int main() {
  if (!Quillmark_logging::initDefaultLogs("rotating_file", false)) return 1;

  // The logs below "Demo.App" write there too. Their lines still reach the common log, if its filter selects them.
  if (!Quillmark_logging::createApplicationSpecificLogFile("Demo.App;", "rotating_file", false)) return 1;

  for (int number = 0; number < 20000; ++number) {
    QMRK_LOG(measured) << "measurement " << number << ": 21.5 degrees";
  }
}
