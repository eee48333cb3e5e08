// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "logsetup/file_appender.h"

namespace boost::logging {

// NOLINTBEGIN(readability-identifier-naming): the log manager's namespace has names in snake case.

/// Appends every message to one file, and reopens, and thereby empties, the file before the first message of each
/// period. Keeps no backup, unless the name function gives each period a name of its own.
class periodic_file_appender : public file_appender {
 public:
  /// @param _periodSeconds the first period begins with the construction, each later one with its first message.
  /// The other arguments are those of file_appender.
  periodic_file_appender(const std::string& _fileName, std::int32_t _periodSeconds, name_function _nameFn,
                         bool _append);

  /// The usual periods; the arguments are those of the constructor.
  static periodic_file_appender hourly(const std::string& _fileName, name_function _nameFn, bool _append);
  static periodic_file_appender daily(const std::string& _fileName, name_function _nameFn, bool _append);
  static periodic_file_appender weekly(const std::string& _fileName, name_function _nameFn, bool _append);
  /// 31 days.
  static periodic_file_appender monthly(const std::string& _fileName, name_function _nameFn, bool _append);
  /// 365 days.
  static periodic_file_appender yearly(const std::string& _fileName, name_function _nameFn, bool _append);

  void write(const std::string& _msg) override;

 protected:
  std::int32_t period_seconds;
  /// Seconds since 1970-01-01 00:00 UTC. Each copy has its own.
  std::int64_t last_open;
};

// NOLINTEND(readability-identifier-naming)

}  // namespace boost::logging
