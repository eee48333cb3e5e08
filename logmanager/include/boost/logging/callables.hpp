// SPDX-License-Identifier: MIT
#ifndef BOOST_LOGGING_CALLABLES_HPP
#define BOOST_LOGGING_CALLABLES_HPP

/// @file
/// What an application connects to logs, and what the log manager offers. Included by boost/logging/logging.hpp.

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "boost/logging/detail/export.hpp"

namespace boost {
namespace logging {

namespace detail {
class BatchHandle;
class LinePlan;
class SharedAppendFile;
class TimeStamp;
}  // namespace detail

/// Writes a finished message somewhere. Its arguments are the name of the log and the message, both 8-bit texts.
///
/// @code
/// void toStandardError(const std::string& /*_logName*/, const std::string& _message) { std::cerr << _message; }
///
/// bl::add_appender(bl::get_default_log_manager(), "*.error", toStandardError, "errors on screen", 200);
/// @endcode
///
/// An appender that was added once is never entered by two threads at once, unless it is write_to_cout, a write_to_file
/// or a ts_appender. Its exceptions are counted, and reported on standard error at most once a minute.
using appender = boost::function<void(const std::string& /*log_name*/, const std::string& /*message*/)>;

/// Changes a message in place. Its arguments are the name of the log and the message, both 8-bit texts.
///
/// @code
/// void prependProcess(const std::string& /*_logName*/, std::string& _message) {
///   _message.insert(0, Quillmark_logging::getFormattedProcessId());
/// }
///
/// bl::add_modifier(bl::get_default_log_manager(), "*", prependProcess, "process", 50);
/// @endcode
///
/// Several threads may enter it at once. Exceptions are treated as those of an appender.
using modifier = boost::function<void(const std::string& /*log_name*/, std::string& /*message*/)>;

/// Appender: writes the message to the standard output (std::cout) and flushes it. Messages of several threads stay
/// whole. An output that fails, such as a closed pipe or a full disk, ends nothing; the next message tries again.
BOOST_LOGGING_API void write_to_cout(const std::string& _logName, const std::string& _message);

/// Appender: writes each message to a file by one append of the system, so that several threads and processes can share
/// the file and every line stays whole. Copies share one open file.
class write_to_file {
 public:
  /// Stores the arguments; the first message creates the file, and its folder.
  /// @param _fileName  path in the process code page, with either separator.
  /// @param _overwrite whether the first message empties an existing file.
  BOOST_LOGGING_API write_to_file(const std::string& _fileName, bool _overwrite);

  /// Appends the message. A file that was removed, renamed or replaced, or whose folder was, is recreated within a
  /// second. A message that cannot be written is lost, counted, and reported on standard error at most once a minute
  /// per file; the next one tries again, and a line before the first that can be written says how many were lost. What
  /// a failed write or a killed process left of a message is ended by a line end before the next message.
  BOOST_LOGGING_API void operator()(const std::string& _logName, const std::string& _message) const;

 private:
  friend class detail::SharedAppendFile;
  boost::shared_ptr<detail::SharedAppendFile> file_;
};

/// Appender: hands messages to a writer thread of its own, which calls the wrapped appender, one call at a time, with
/// an empty log name and the text of all messages since the previous call. Copies share one writer. What the wrapped
/// appender throws is counted and reported as above. At most 64 MiB are held; beyond that the newest messages are
/// dropped, and a line says how many when there is room again. What is still held is delivered when the last copy is
/// destroyed, at normal process exit and when the library is unloaded.
class ts_appender {
 public:
  /// Stores the arguments; the first message starts the writer.
  /// @param _wrapped is called by the writer.
  /// @param _sleepMs milliseconds between two calls. With 0 one or so if more messages are expected shortly, else
  ///   until the next one.
  BOOST_LOGGING_API ts_appender(const appender& _wrapped, int _sleepMs);

  /// The same for an appender that writes to a file, of which list_files then tells, as it does of a write_to_file.
  BOOST_LOGGING_API ts_appender(const appender& _wrapped, int _sleepMs, const std::string& _fileName);

  /// Stores the message. The very first call starts the writer and sleeps 100 ms; no later one waits.
  BOOST_LOGGING_API void operator()(const std::string& _logName, const std::string& _message) const;

 private:
  friend class detail::BatchHandle;
  boost::shared_ptr<detail::BatchHandle> handle_;
};

/// Modifier: puts the local time of the logging statement before the message.
class prepend_time_ms {
 public:
  /// @param _format text in which $yyyy, $MM, $dd, $hh, $mm, $ss and $mss (milliseconds, 000 to 999) are replaced.
  BOOST_LOGGING_API explicit prepend_time_ms(const std::string& _format);

  /// Changes the message.
  BOOST_LOGGING_API void operator()(const std::string& _logName, std::string& _message) const;

 private:
  friend class detail::LinePlan;
  boost::shared_ptr<const detail::TimeStamp> format_;
};

/// Modifier: puts "[", the name of the log and "] " before the message.
BOOST_LOGGING_API void prepend_prefix(const std::string& _logName, std::string& _message);

/// Modifier: puts a line feed after the message.
BOOST_LOGGING_API void append_enter(const std::string& _logName, std::string& _message);

}  // namespace logging
}  // namespace boost

#endif
