// SPDX-License-Identifier: MIT
#ifndef BOOST_LOGGING_LOGGER_HPP
#define BOOST_LOGGING_LOGGER_HPP

/// @file
/// Named logs, and the statement that logs. Included by boost/logging/logging.hpp.

#include <atomic>
#include <string>

#include "boost/logging/detail/export.hpp"
#include "boost/logging/detail/program_end.hpp"

namespace boost {
namespace logging {

namespace detail {

class statement;

/// What a logging statement reads of its log before anything else.
struct log_switch {
  std::atomic<bool> enabled;
};

}  // namespace detail

/// A handle on one named log, of the size of a pointer. Copies are handles on the same log. Logs are never destroyed,
/// so a handle may be a static object, and may be used on any thread, before main and after it.
class logger {
 public:
  /// Finds or creates the log. The look-up takes a lock: keep the handle, rather than make one per message.
  /// @param _name dot-separated, compared byte by byte: "App.error".
  BOOST_LOGGING_API explicit logger(const std::string& _name);

  /// @return the name of the log, which lives until the process ends.
  BOOST_LOGGING_API const std::string& name() const;

  /// @return whether the log is on; one relaxed atomic load.
  bool is_enabled() const { return log_->enabled.load(std::memory_order_relaxed); }

  /// Logs a message, unless the log is off. Throws nothing that an appender or a modifier throws.
  /// @param _message the text, 8-bit and kept as it is; line ends are the modifiers' business.
  BOOST_LOGGING_API void write(const std::string& _message) const;

 private:
  friend class detail::statement;
  detail::log_switch* log_;
};

}  // namespace logging
}  // namespace boost

#include "boost/logging/detail/statement.hpp"

/// Logs a message: `QMRK_LOG(info) << "size " << n;`
///
/// A disabled statement costs one atomic load; nothing after the macro is evaluated then. What follows is inserted as
/// into a std::ostream in its initial state. When an insertion throws, nothing is logged and the exception goes on to
/// the caller; what appenders and modifiers throw never reaches it. The macro makes an expression, safe as the only
/// statement of an if or else, on any thread, and inside an appender.
/// @param log a boost::logging::logger.
// NOLINTBEGIN(bugprone-macro-parentheses): what follows the macro belongs to its last operand
#define QMRK_LOG(log)        \
  !((log).is_enabled())      \
      ? static_cast<void>(0) \
      : ::boost::logging::detail::finish_statement() & ::boost::logging::detail::statement(log).stream()
// NOLINTEND(bugprone-macro-parentheses)

#endif
