// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "logsetup/output_file_stream.h"

namespace boost::logging {

/// Gives the actual name of a log file from its base name, at each open.
using name_function = std::string (*)(const std::string&);

// NOLINTBEGIN(readability-identifier-naming): the log manager's namespace has names in snake case.

/// An open file, shared by all copies of the appender that opened it. Paths are narrow strings in the process code page
/// and may hold backslashes. Takes no lock: calls must not overlap.
struct logfile {
  /// Opens nothing yet.
  /// @param _nameFn may be null: the file is then opened under its base name.
  logfile(const std::string& _fileName, name_function _nameFn);
  ~logfile();
  logfile(const logfile&) = delete;
  logfile& operator=(const logfile&) = delete;

  /// Clears the stream's error state, asks the name function again and opens the stream in text mode, sharing the file
  /// with other readers and writers. The position is then the end of the file.
  /// @param _append false empties an existing file. Reports a failure only by the failed state of the stream: what is
  ///   written is lost, and the position reads as -1.
  void open(bool _append);

  /// Closes what is open, and opens the file that has the name by now, for appending.
  void reopen();

  /// Writes the message as it is, at once. One that is lost is noted for the status page, and reported by nothing else.
  /// All output goes this way.
  void write(const std::string& _msg);

  /// The position of the stream: how many bytes of the file come before it, -1 when the stream is closed or has failed.
  std::int64_t position();

  name_function name_fn;
  std::string file_name;
  /// The name under which the file was last opened.
  std::string current_name;
  Quillmark_logging::OutputFileStream out;
};

// NOLINTEND(readability-identifier-naming)

}  // namespace boost::logging
