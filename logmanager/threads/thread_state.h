// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/clock.h"

namespace boost::logging::detail {

class Context;
class InsideMark;

/// What the manager knows of the calling thread. Has no destructor, so that a thread, and the library, may end at any
/// time and a statement in a destructor of the thread still works; what the pointers point to belongs to pools.
struct ThreadState {
  /// A time as a format gave it last: only the milliseconds change within the second.
  struct TimeText {
    /// Of the format; 0 for none.
    std::uint64_t formatId = 0;
    /// In milliseconds since 1970, and its second.
    std::int64_t time = 0;
    std::int64_t second = 0;
    std::size_t size = 0;
    char text[64] = {};
  };

  /// The context of the innermost statement that runs.
  Context* innermost = nullptr;
  /// What the thread used last, probably free.
  Context* lastContext = nullptr;
  /// The locks that the thread holds while it runs foreign code.
  const InsideMark* innermostMark = nullptr;
  /// How many messages are on their way through callables, one inside the other.
  int depth = 0;
  /// The wall-clock time of the innermost of these messages in milliseconds since 1970; 0 while nobody has asked.
  std::int64_t messageTime = 0;
  TimeText timeText;
};

/// The state of the calling thread. The look-up is not free: pass it on if you have it.
ThreadState& threadState();

/// Marks a thread as passing a message through callables, while it lives.
class MessageScope {
 public:
  /// @param _thread the state of the calling thread.
  /// @param _time of the message, in milliseconds since 1970; 0 for that of the first question for it.
  MessageScope(ThreadState& _thread, std::int64_t _time) : MessageScope(_thread, _time, _thread.depth + 1) {}

  /// The same for a message that was logged on another thread.
  /// @param _depth how many messages were on their way there, one inside the other, this one included.
  MessageScope(ThreadState& _thread, std::int64_t _time, int _depth)
      : thread_(_thread), outerTime_(_thread.messageTime), outerDepth_(_thread.depth) {
    thread_.depth = _depth;
    thread_.messageTime = _time;
  }
  ~MessageScope() {
    thread_.depth = outerDepth_;
    thread_.messageTime = outerTime_;
  }
  MessageScope(const MessageScope&) = delete;
  MessageScope& operator=(const MessageScope&) = delete;

 private:
  ThreadState& thread_;
  std::int64_t outerTime_;
  int outerDepth_;
};

/// The time of the message that the thread passes through callables, else the time now.
inline std::int64_t messageTime(ThreadState& _state) {
  if (_state.depth == 0) return platform::wallClockMilliseconds();
  if (_state.messageTime == 0) _state.messageTime = platform::wallClockMilliseconds();
  return _state.messageTime;
}

}  // namespace boost::logging::detail
