// SPDX-License-Identifier: MIT
#include "logmanager/threads/thread_state.h"

namespace boost::logging::detail {

ThreadState& threadState() {
  static thread_local constinit ThreadState state;
  return state;
}

}  // namespace boost::logging::detail
