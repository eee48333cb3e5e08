// SPDX-License-Identifier: MIT
#pragma once

#include "boost/logging/detail/log_stream.hpp"
#include "logmanager/line_buffer.h"

namespace boost::logging::detail {

struct Context;

/// The stream of a context, with its text. Its locale is the classic one, whatever the global locale is. One thread at
/// a time may use an object.
class StatementStream : public log_stream {
 public:
  explicit StatementStream(Context& _context);

  /// Begins the text of another statement.
  void restart();

  /// To be called when more, or no more, was done to the stream than what log_stream itself offers: the next restart
  /// then puts everything back that an insertion can have changed.
  void noteGeneralUse() { mayBeChanged_ = true; }
  void noteOwnUse() { mayBeChanged_ = false; }

  LineBuffer& buffer() { return buffer_; }
  Context& context() const { return context_; }

 private:
  void putBack();

  Context& context_;
  LineBuffer buffer_;
  bool mayBeChanged_ = false;
};

}  // namespace boost::logging::detail
