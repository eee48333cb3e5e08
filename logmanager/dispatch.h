// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "logmanager/callable_set.h"

namespace boost::logging::detail {

struct ThreadState;

/// Marks the calling thread as passing a message through callables, while it lives.
class MessageScope {
 public:
  /// @param _thread the state of the calling thread.
  /// @param _time of the message, in milliseconds since 1970; 0 for that of the first question for it.
  MessageScope(ThreadState& _thread, std::int64_t _time);

  /// The same for a message that was logged on another thread.
  /// @param _depth how many messages were on their way there, one inside the other, this one included.
  MessageScope(ThreadState& _thread, std::int64_t _time, int _depth);
  ~MessageScope();
  MessageScope(const MessageScope&) = delete;
  MessageScope& operator=(const MessageScope&) = delete;

 private:
  ThreadState& thread_;
  std::int64_t outerTime_;
  int outerDepth_;
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
