// SPDX-License-Identifier: MIT
#include "logmanager/context.h"

#include "logmanager/thread_state.h"

namespace boost::logging::detail {

SlotPool<Context>& contexts() {
  static constinit SlotPool<Context> pool;
  return pool;
}

Context& enterContext(const Log& _log) {
  ThreadState& state = threadState();
  Context* context = state.usualContext;
  if (context == nullptr || !context->tryEnter()) {
    context = &contexts().enterAny();
    // An inner statement does not take the place of the outer one's context.
    if (state.innermost == nullptr) state.usualContext = context;
  }
  context->callables = context->hold(_log.callables);
  context->log = &_log;
  context->outer = state.innermost;
  state.innermost = context;
  return *context;
}

void leaveContext(Context& _context) {
  threadState().innermost = _context.outer;
  _context.leave();
}

}  // namespace boost::logging::detail
