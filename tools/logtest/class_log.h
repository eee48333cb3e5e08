// SPDX-License-Identifier: MIT
#pragma once

#include <boost/logging/logging.hpp>
#include <string>
#include <vector>

namespace logtest {

/// A class into which the program logs.
struct ClassLog {
  boost::logging::logger log;
  /// How many lines it took.
  int lines = 0;
};

/// The classes of a list, whose last entry need not be ended; empty entries are left out.
std::vector<ClassLog> classLogsOf(const std::string& _classes);

/// Logs a line into a class, which counts when the class is on.
/// @param _stamps whether process, thread and location stand in front of it.
void logLine(ClassLog& _class, const std::string& _text, bool _stamps);

/// For the user: a line for each class that tells whether it is on and how many lines it took.
std::string describe(const std::vector<ClassLog>& _classes);

}  // namespace logtest
