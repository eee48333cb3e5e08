// SPDX-License-Identifier: MIT
#include "logmanager/thread_state.h"

#include "platform/clock.h"

namespace boost::logging::detail {

ThreadState& threadState() {
  static thread_local constinit ThreadState state;
  return state;
}

std::int64_t messageTime() {
  ThreadState& state = threadState();
  if (state.depth == 0) return platform::wallClockMilliseconds();
  if (state.messageTime == 0) state.messageTime = platform::wallClockMilliseconds();
  return state.messageTime;
}

}  // namespace boost::logging::detail
