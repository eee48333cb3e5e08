// SPDX-License-Identifier: MIT
#include "logmanager/thread_state.h"

#include "platform/clock.h"

namespace boost::logging::detail {

ThreadState& threadState() {
  static thread_local constinit ThreadState state;
  return state;
}

std::int64_t messageTime(ThreadState& _state) {
  if (_state.depth == 0) return platform::wallClockMilliseconds();
  if (_state.messageTime == 0) _state.messageTime = platform::wallClockMilliseconds();
  return _state.messageTime;
}

}  // namespace boost::logging::detail
