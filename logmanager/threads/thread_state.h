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
  /// The latest text of a format: within a second only the milliseconds change.
  struct TimeText {
    /// Id of the format; 0 for none.
    std::uint64_t formatId = 0;
    /// In milliseconds since 1970, and its second.
    std::int64_t time = 0;
    std::int64_t second = 0;
    std::size_t size = 0;
    char text[64] = {};
  };

  /// The context of the innermost statement that runs.
  Context* innermost = nullptr;
  /// The context that the thread used last, probably free.
  Context* lastContext = nullptr;
  /// The locks that the thread holds while it runs foreign code.
  const InsideMark* innermostMark = nullptr;
  /// How many messages are on their way through callables, one inside another.
  int depth = 0;
  /// The wall-clock time of the innermost of these messages in milliseconds since 1970; 0 while nobody has asked.
  std::int64_t messageTime = 0;
  TimeText timeText;
};

/// The state of the calling thread. The look-up is not free: pass it on if you have it.
ThreadState& threadState();

/// While it lives, marks a thread as delivering a message.
class MessageScope {
 public:
  /// @param _thread the state of the calling thread.
  /// @param _time of the message, in milliseconds since 1970; 0: the time when it is first asked for.
  MessageScope(ThreadState& _thread, std::int64_t _time) : MessageScope(_thread, _time, _thread.depth + 1) {}

  /// The same for a message that was logged on another thread.
  /// @param _depth how many messages were on their way there, one inside another, including this one.
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

/// The time of the message that the thread delivers, else the current time.
inline std::int64_t messageTime(ThreadState& _state) {
  if (_state.depth == 0) return platform::wallClockMilliseconds();
  if (_state.messageTime == 0) _state.messageTime = platform::wallClockMilliseconds();
  return _state.messageTime;
}

}  // namespace boost::logging::detail
