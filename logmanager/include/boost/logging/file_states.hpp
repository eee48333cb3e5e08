// SPDX-License-Identifier: MIT
#ifndef BOOST_LOGGING_FILE_STATES_HPP
#define BOOST_LOGGING_FILE_STATES_HPP

/// @file
/// What became of files and logs, for programs that show it to people. Included by boost/logging/logging.hpp.
///
/// @code
/// void showFiles() {
///   bl::list_files([](const bl::file_state& _file) {
///     std::cerr << _file.path << ": " << _file.lost << " lost, the last by error " << _file.error << "\n";
///   });
/// }
///
/// bl::observe_files(showFiles);
/// @endcode

#include <boost/function.hpp>
#include <cstdint>
#include <string>

#include "boost/logging/detail/export.hpp"

namespace boost {
namespace logging {

class default_log_manager;

/// What became of a file that appenders of the manager write to. The counts are those of the process.
struct file_state {
  /// As it was given to write_to_file or ts_appender.
  std::string path;
  /// Messages that could not be written.
  std::uint64_t lost;
  /// Messages that were dropped because too many waited for a ts_appender.
  std::uint64_t dropped;
  /// Bytes of memory in which messages wait for a ts_appender.
  std::uint64_t held;
  /// Why the last message that was lost could not be written: a Windows error code; 0 when none was.
  std::uint32_t error;
  /// When it could not: milliseconds since 1970-01-01 00:00 UTC; 0 for never.
  std::int64_t failed_at;
  /// Whether no message was written since.
  bool is_failing;
};

/// Calls a function for each file of which there is something to tell: one that has lost messages, or that a
/// ts_appender writes to.
/// @param _visit may be called by any thread that calls list_files; what it throws goes on to the caller.
/// @throws std::bad_alloc.
BOOST_LOGGING_API void list_files(const boost::function<void(const file_state& /*_file*/)>& _visit);

/// Asks to be called whenever a file has lost messages, or is written again after that, and whenever a ts_appender
/// begins or ends to drop messages; then list_files tells more.
///
/// The function is called on the thread whose message it was, without a lock. It must not wait, since that thread is
/// in a logging statement, nor throw. It may log, though the message may be lost too. As long as all goes well it is
/// never called and costs nothing.
/// The set-up library has an observer of its own, which shows the files on the status page.
/// @param _observer takes the place of the former one; null for none.
BOOST_LOGGING_API void observe_files(void (*_observer)());

/// Calls a function for each log that exists, in the order of creation.
/// @param _manager the manager.
/// @param _visit   gets the name of the log, and whether it is on. It may make calls of the manager; what it throws
///   goes on to the caller.
/// @throws std::bad_alloc.
BOOST_LOGGING_API void list_logs(default_log_manager& _manager,
                                 const boost::function<void(const std::string& /*_name*/, bool /*_isOn*/)>& _visit);

}  // namespace logging
}  // namespace boost

#endif
