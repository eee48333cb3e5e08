// SPDX-License-Identifier: MIT
#ifndef BOOST_LOGGING_DETAIL_STATEMENT_HPP
#define BOOST_LOGGING_DETAIL_STATEMENT_HPP

// What QMRK_LOG is made of. Included by boost/logging/logging.hpp.

#include <iosfwd>

#include "boost/logging/detail/export.hpp"
#include "boost/logging/detail/log_stream.hpp"

namespace boost {
namespace logging {

class logger;

namespace detail {

/// One logging statement: has a stream of its own from the construction to the destruction. A statement inside the
/// insertion operator of another one's value gets another stream. When an insertion throws, the statement ends without
/// a message and the exception goes on to the caller.
class statement {
 public:
  explicit statement(const logger& _logger) : stream_(begin(_logger, stream_)) {}
  ~statement() {
    if (stream_ != nullptr) abandon(*stream_);
  }
  statement(const statement&) = delete;
  statement& operator=(const statement&) = delete;

  log_stream& stream() const { return *stream_; }

 private:
  /// @param _place becomes null when the message is delivered.
  BOOST_LOGGING_API static log_stream* begin(const logger& _logger, log_stream*& _place);
  BOOST_LOGGING_API static void abandon(log_stream& _stream);

  log_stream* stream_;
};

/// Ends the innermost statement of the thread: its message is delivered. The operator binds less tightly than << and
/// more tightly than ?:.
struct finish_statement {
  BOOST_LOGGING_API void operator&(log_stream& _stream) const;
  BOOST_LOGGING_API void operator&(std::ostream& _stream) const;
};

}  // namespace detail
}  // namespace logging
}  // namespace boost

#endif
