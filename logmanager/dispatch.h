// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "logmanager/callable_set.h"

namespace boost::logging::detail {

struct ThreadState;

/// While it lives, the calling thread, whose state it is given, passes a message of the given time through callables. A
/// time of 0 is that of the first question for it.
class MessageScope {
 public:
  MessageScope(ThreadState& _thread, std::int64_t _time);
  ~MessageScope();
  MessageScope(const MessageScope&) = delete;
  MessageScope& operator=(const MessageScope&) = delete;

 private:
  ThreadState& thread_;
  std::int64_t outerTime_;
};

/// Passes a message through the modifiers and then to the appenders. Exceptions of callables are contained, the others
/// still get the message. A message that is logged inside eight others is dropped and reported: it would never end.
/// @param _thread the state of the calling thread.
/// @param _callables may be null: none.
/// @param _text the message as it was logged.
/// @param _line working memory, in which the modifiers make the line; _text is not part of it.
/// @param _time as for MessageScope.
void passThrough(ThreadState& _thread, const CallableSet* _callables, const std::string& _logName,
                 std::string_view _text, std::string& _line, std::int64_t _time) noexcept;

/// Calls the appender without its gate; an exception is contained.
void callAppender(const Callable& _appender, const std::string& _logName, const std::string& _message) noexcept;

}  // namespace boost::logging::detail
