// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "logsetup/logfile.h"

namespace boost::logging {

// NOLINTBEGIN(readability-identifier-naming): the log manager's namespace has names in snake case.

/// An appender (a callable that takes a log name and a finished message) that writes every message to one file and
/// flushes it. Copies share the open file, which is closed with the last of them. Takes no lock: calls through the
/// copies of one appender must not overlap.
class file_appender {
 public:
  /// Opens the file at once and creates it if it is missing; a failure is silent (logfile::open).
  /// @param _fileName full path.
  /// @param _nameFn may be null.
  /// @param _append false empties an existing file.
  file_appender(const std::string& _fileName, name_function _nameFn, bool _append);
  file_appender(const file_appender&) = default;
  file_appender& operator=(const file_appender&) = default;
  virtual ~file_appender();

  /// What the log manager calls. The log name is ignored. Throws what write() throws.
  void operator()(const std::string& _logName, const std::string& _msg);

  /// Writes the message as it is, at once. One that is lost is only shown on the status page.
  virtual void write(const std::string& _msg);

 protected:
  /// The shared file; never null.
  logfile& file() const { return *file_; }

 private:
  std::shared_ptr<logfile> file_;
};

// NOLINTEND(readability-identifier-naming)

}  // namespace boost::logging
