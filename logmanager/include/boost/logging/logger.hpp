// SPDX-License-Identifier: MIT
#ifndef BOOST_LOGGING_LOGGER_HPP
#define BOOST_LOGGING_LOGGER_HPP

// Included by boost/logging/logging.hpp.

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

/// A cheap handle on one named log. Copies are handles on the same log; logs are never destroyed.
class logger {
 public:
  /// Finds or creates the log.
  BOOST_LOGGING_API explicit logger(const std::string& _name);

  BOOST_LOGGING_API const std::string& name() const;

  /// Whether the log is on.
  bool is_enabled() const { return log_->enabled.load(std::memory_order_relaxed); }

  /// Logs the message, unless the log is off.
  BOOST_LOGGING_API void write(const std::string& _message) const;

 private:
  friend class detail::statement;
  detail::log_switch* log_;
};

}  // namespace logging
}  // namespace boost

#include "boost/logging/detail/statement.hpp"

/// QMRK_LOG(log) << "size " << n; logs a message on the boost::logging::logger. Nothing after the macro is evaluated
/// when the log is off. It is an expression, and safe as the only statement of an if or else.
// NOLINTBEGIN(bugprone-macro-parentheses): what follows the macro belongs to its last operand
#define QMRK_LOG(log)        \
  !((log).is_enabled())      \
      ? static_cast<void>(0) \
      : ::boost::logging::detail::finish_statement() & ::boost::logging::detail::statement(log).stream()
// NOLINTEND(bugprone-macro-parentheses)

#endif
