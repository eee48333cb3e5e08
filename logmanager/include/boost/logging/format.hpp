// SPDX-License-Identifier: MIT
#ifndef BOOST_LOGGING_FORMAT_HPP
#define BOOST_LOGGING_FORMAT_HPP

/// @file
/// Optional: QMRK_LOGF, a logging statement with a format string of {fmt}. The only header of the log manager that
/// needs {fmt} (8 or later; link fmt::fmt) and C++14. Not included by boost/logging/logging.hpp.

#include <fmt/compile.h>
#include <fmt/format.h>

#include "boost/logging/logging.hpp"

namespace boost {
namespace logging {
namespace detail {

// Formats the arguments and logs the text. What a formatter throws goes on to the caller, without a message. The
// compiler parses _format (before C++17, its use does). By the type of _checked, {fmt} checks the arguments, which it
// does not do for every format that the compiler parses. _formatText is the format once more, as the first argument
// that the macro passes on.
template <typename Format, typename... Arguments>
void log_formatted(const logger& _log, const Format& _format, fmt::format_string<const Arguments&...> /*_checked*/,
                   const char* /*_formatText*/, const Arguments&... _arguments) {
  fmt::memory_buffer text;
  fmt::format_to(fmt::appender(text), _format, _arguments...);
  const statement logging(_log);
  logging.stream().put(text.data(), text.size());
  finish_statement() & logging.stream();
}

}  // namespace detail
}  // namespace logging
}  // namespace boost

/// Logs a message: `QMRK_LOGF(info, "size {}", n);`
///
/// Takes a boost::logging::logger, a format, which is a literal, and its arguments. A format that does not fit the
/// arguments does not compile. A disabled statement costs one atomic load; nothing after the logger is evaluated then.
/// What a formatter throws goes on to the caller, and nothing is logged. Otherwise as QMRK_LOG.
#define QMRK_LOGF(log, ...)                                                                                   \
  (!((log).is_enabled())                                                                                      \
       ? static_cast<void>(0)                                                                                 \
       : ::boost::logging::detail::log_formatted(log, FMT_COMPILE(BOOST_LOGGING_FIRST_ARGUMENT(__VA_ARGS__)), \
                                                 FMT_STRING(BOOST_LOGGING_FIRST_ARGUMENT(__VA_ARGS__)), __VA_ARGS__))

/// Part of QMRK_LOGF: the format. The 0 stands for arguments that a format may not have.
#define BOOST_LOGGING_FIRST_ARGUMENT(...) BOOST_LOGGING_FIRST_ARGUMENT_OF(__VA_ARGS__, 0)
/// Part of QMRK_LOGF.
#define BOOST_LOGGING_FIRST_ARGUMENT_OF(first, ...) first

#endif
