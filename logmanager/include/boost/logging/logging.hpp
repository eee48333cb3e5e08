// SPDX-License-Identifier: MIT
#ifndef BOOST_LOGGING_LOGGING_HPP
#define BOOST_LOGGING_LOGGING_HPP

/// @file
/// The log manager. It keeps named logs; a log passes each message through its modifiers, which change the text, then
/// to its appenders, which write it somewhere. This header includes all of it but boost/logging/format.hpp.
///
/// @code
/// #include <boost/logging/logging.hpp>
///
/// int main() {
///   namespace bl = boost::logging;
///   bl::default_log_manager& manager = bl::get_default_log_manager();
///   bl::add_modifier(manager, "*", bl::append_enter, "line end", 100);
///   bl::add_appender(manager, "App", bl::write_to_file("app.log", false), "file", 100);
///   bl::flush_log_cache();  // write what was logged so far; from here on, messages are not kept
///
///   const bl::logger errors("App.error");
///   QMRK_LOG(errors) << "disk " << 3 << " failed";
/// }
/// @endcode
///
/// **Names** of logs are dot-separated and compared byte by byte. A set-up call selects logs by a pattern. "*" in it
/// stands for any sequence of characters, including none, and the pattern must match the whole name. A pattern without
/// "*" selects the log of that name and the logs below it: "App" selects "App" and "App.error", not "Apple". The empty
/// pattern selects only the log with the empty name. What a call sets also holds for logs that are created later.
///
/// **Threads.** Everything here may be called from any threads at once, from appenders and modifiers, before main and
/// after it: the manager is created at its first use and never destroyed. A logging statement never waits for a set-up
/// call, and sees the callables of its log as they were before such a call or after it, never a mix.
///
/// **Failures.** Set-up calls and constructors throw std::bad_alloc when memory is short; nothing has changed then. The
/// first logging statement of a thread may throw it too; all others throw only what their own operands throw.

#include <string>

#include "boost/logging/callables.hpp"
#include "boost/logging/detail/export.hpp"
#include "boost/logging/file_states.hpp"
#include "boost/logging/logger.hpp"
#include "boost/logging/set_up_change.hpp"

/// Root of the log manager's namespace.
namespace boost {
/// The log manager.
namespace logging {

/// Keeps the logs and what is connected to them. Used by reference only.
class default_log_manager;

/// Gives the one manager of the process.
/// @return the manager, which lives until the process ends.
BOOST_LOGGING_API default_log_manager& get_default_log_manager();

/// Connects an appender to every selected log. Appenders with a lower index run first; those with the same index, in
/// the order in which they were added. Several may share a name.
///
/// The manager keeps a copy. When the appender has been removed and no statement uses it any more, a later set-up call
/// destroys the copy.
///
/// @param _manager  the manager.
/// @param _logs     a pattern, see above.
/// @param _appender is called with the name of the log and the finished message. An empty function is ignored.
/// @param _name     the name by which del_appender finds it.
/// @param _index    the place in the order. The set-up library connects everything at 100.
BOOST_LOGGING_API void add_appender(default_log_manager& _manager, const std::string& _logs, const appender& _appender,
                                    const std::string& _name, int _index);

/// Connects a modifier to every selected log; as add_appender does, in an order of their own.
/// @param _manager  the manager.
/// @param _logs     a pattern.
/// @param _modifier is called with the name of the log and the message, before any appender. Empty: ignored.
/// @param _name     the name by which del_modifier finds it.
/// @param _index    the place in the order.
BOOST_LOGGING_API void add_modifier(default_log_manager& _manager, const std::string& _logs, const modifier& _modifier,
                                    const std::string& _name, int _index);

/// Disconnects every appender of a name from the selected logs; without effect when there is none.
/// @param _manager the manager.
/// @param _logs    a pattern.
/// @param _name    the name that was given to add_appender.
BOOST_LOGGING_API void del_appender(default_log_manager& _manager, const std::string& _logs, const std::string& _name);

/// Disconnects every modifier of a name from the selected logs; without effect when there is none.
/// @param _manager the manager.
/// @param _logs    a pattern.
/// @param _name    the name that was given to add_modifier.
BOOST_LOGGING_API void del_modifier(default_log_manager& _manager, const std::string& _logs, const std::string& _name);

/// Level of a log that is on.
constexpr unsigned int level_on = 0;
/// Level of a log that is off. Every other level means on.
constexpr unsigned int level_off = 4294967295U;

/// Switches the selected logs on or off. The latest call that selects a log decides; one that no call selects is on.
/// @param _manager the manager.
/// @param _logs    a pattern.
/// @param _level   level_off; or any other level for on, conventionally level_on.
BOOST_LOGGING_API void enable_logs(default_log_manager& _manager, const std::string& _logs, unsigned int _level);

/// Ends the time in which messages are kept. Until the first call every message is kept, with its time: the latest
/// 1 MiB of text. The call writes what was kept through the callables that are connected then, for the logs that are
/// on then, after a line that says how many messages were dropped, if any. What other threads log meanwhile is kept for
/// two more rounds; then they wait for the call to return. Later calls have no effect.
BOOST_LOGGING_API void flush_log_cache();

}  // namespace logging
}  // namespace boost

#endif
