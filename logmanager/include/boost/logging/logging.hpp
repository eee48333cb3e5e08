// SPDX-License-Identifier: MIT
#ifndef BOOST_LOGGING_LOGGING_HPP
#define BOOST_LOGGING_LOGGING_HPP

// The log manager. It keeps named logs; a log passes each message through its modifiers, which change the text, and
// then to its appenders, which write it somewhere.
//
// Names of logs are dot-separated and compared byte by byte. A set-up call selects logs by a pattern: "*" in it stands
// for any run of characters, including none, and the pattern must match the whole name; a pattern without "*" selects
// the log of that name and the logs below it ("App" selects "App" and "App.error", not "Apple"); the empty pattern
// selects only the log with the empty name. What a call sets holds as well for logs that are created later.
//
// Everything here may be called from any threads at once, from appenders and modifiers, and before main and after it:
// the manager is made at its first use and never destroyed. A logging statement never waits for a set-up call and sees
// the callables of its log as they were before such a call or after it, never a mix.

#include <cstddef>
#include <string>

#include "boost/logging/callables.hpp"
#include "boost/logging/detail/export.hpp"
#include "boost/logging/logger.hpp"

namespace boost {
namespace logging {

class default_log_manager;

namespace detail {

struct NotedCalls;

}  // namespace detail

/// The one manager of the process.
BOOST_LOGGING_API default_log_manager& get_default_log_manager();

/// Connects a callable to every selected log. Callables with a lower index run first; those with equal indexes run in
/// the order of adding. Several may share a name. The manager keeps a copy, destroyed by a later set-up call at
/// the earliest when the callable has been removed and no statement uses it any more. An empty function is ignored.
BOOST_LOGGING_API void add_appender(default_log_manager& _manager, const std::string& _logs, const appender& _appender,
                                    const std::string& _name, int _index);
BOOST_LOGGING_API void add_modifier(default_log_manager& _manager, const std::string& _logs, const modifier& _modifier,
                                    const std::string& _name, int _index);

/// Disconnects every callable of the name from the selected logs; without effect when there is none.
BOOST_LOGGING_API void del_appender(default_log_manager& _manager, const std::string& _logs, const std::string& _name);
BOOST_LOGGING_API void del_modifier(default_log_manager& _manager, const std::string& _logs, const std::string& _name);

/// Switches the selected logs off (level 4294967295) or on (any other level, conventionally 0). The latest call that
/// selects a log decides; a log that no call has selected is on.
BOOST_LOGGING_API void enable_logs(default_log_manager& _manager, const std::string& _logs, unsigned int _level);

/// Makes set-up calls take effect together:
///
///   set_up_change change(manager);
///   enable_logs(manager, "*", 4294967295U);
///   enable_logs(manager, "App.error", 0);
///   change.apply();
///
/// While one is alive, the add, delete and enable calls that its thread makes on the manager are noted, and so is a
/// call of flush_log_cache that comes after them. A statement of any thread sees its log as it was before all of them
/// or as it is after all of them, also when the log is created meanwhile, and a log that ends up as it was is never
/// touched: "App.error" above, if it was on, loses no message. Changes of several threads are applied one after the
/// other.
///
/// To be used and destroyed by the thread that made it. One made while another of the thread is alive joins it: its
/// apply leaves its calls to the other one's, and it is destroyed first.
class set_up_change {
 public:
  BOOST_LOGGING_API explicit set_up_change(default_log_manager& _manager);

  /// Carries out what was noted, the flush last. Later calls are noted again.
  /// Throws std::bad_alloc when there is no memory for it: then nothing has changed and all is still noted.
  BOOST_LOGGING_API void apply();

  /// Forgets what was noted and not applied.
  BOOST_LOGGING_API ~set_up_change();

  set_up_change(const set_up_change&) = delete;
  set_up_change& operator=(const set_up_change&) = delete;

 private:
  void keep();

  detail::NotedCalls* noted_;
  std::size_t kept_ = 0;
  bool keepsFlush_ = false;
};

/// Until its first call every message is kept, with its time, the latest 1 MiB of text; the call writes what was kept
/// through the callables that are connected then, for the logs that are on then, after a line with the number of
/// messages that were dropped, if any. What other threads log meanwhile is kept for two more rounds; then they wait for
/// the call to return. Later calls have no effect.
BOOST_LOGGING_API void flush_log_cache();

}  // namespace logging
}  // namespace boost

#endif
