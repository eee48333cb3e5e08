// SPDX-License-Identifier: MIT
#pragma once

#include <boost/logging/logging.hpp>
#include <string>
#include <vector>

namespace logtest {

/// A class to which the program logs.
struct ClassLog {
  boost::logging::logger log;
  /// How many lines it accepted.
  int lines = 0;
};

/// The classes of a list, without empty entries. The last entry may lack its ";".
std::vector<ClassLog> classLogsOf(const std::string& _classes);

/// Logs a line to a class; it counts if the class is on.
/// @param _stamps whether process, thread and location precede the line.
void logLine(ClassLog& _class, const std::string& _text, bool _stamps);

/// For the user: a line per class that says whether it is on and how many lines it accepted.
std::string describe(const std::vector<ClassLog>& _classes);

}  // namespace logtest
