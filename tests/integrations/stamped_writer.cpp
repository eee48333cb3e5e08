// SPDX-License-Identifier: MIT
// stamped_writer NAME LINES PER_SECOND: an application of a family that is logged centrally. It writes numbered lines,
// evenly over the time, to the common log and to a log file of its own, both with the stamp of the example.

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include "boost/logging/logging.hpp"
#include "quillmark_logging.h"

namespace bl = boost::logging;

// Of examples/programs/process_stamp.cpp, which is linked.
void prependProcess(const std::string& _logName, std::string& _message);

int main(int _argc, char** _argv) {
  if (_argc != 4) return 2;
  const std::string name = _argv[1];
  const int lines = std::atoi(_argv[2]);
  const auto pause = std::chrono::nanoseconds(std::chrono::seconds(1)) / std::atoi(_argv[3]);

  bl::add_modifier(bl::get_default_log_manager(), "*", prependProcess, "process", 50);
  if (!Quillmark_logging::initDefaultLogs(name, false)) return 1;
  if (!Quillmark_logging::createApplicationSpecificLogFile("Demo.Own;", name, false)) return 1;

  const bl::logger shared("Demo.App.shared");
  const bl::logger own("Demo.Own");
  auto next = std::chrono::steady_clock::now();
  for (int line = 1; line <= lines; ++line) {
    QMRK_LOG(shared) << name << " line " << line << " of " << lines;
    QMRK_LOG(own) << name << " line " << line << " of " << lines;
    next += pause;
    std::this_thread::sleep_until(next);
  }
}
