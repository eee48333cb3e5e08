// SPDX-License-Identifier: MIT
#pragma once

#include <boost/logging/logging.hpp>
#include <string>
#include <vector>

namespace logtest {

/// A class to which the program logs.
struct ClassLog {
  boost::logging::logger log;
  /// Lines logged while the class was on.
  int lines = 0;
};

/// The classes in a list, without empty entries. The last entry need not end with ";".
std::vector<ClassLog> classLogsOf(const std::string& _classes);

/// Logs a line to a class, and counts it if the class is on.
/// @param _text without a line end.
/// @param _stamps whether process, thread and location precede the text.
void logLine(ClassLog& _class, const std::string& _text, bool _stamps);

/// One line per class, for the user: whether it is on, and how many lines were logged.
std::string describe(const std::vector<ClassLog>& _classes);

}  // namespace logtest
