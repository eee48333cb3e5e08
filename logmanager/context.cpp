// SPDX-License-Identifier: MIT
#include "logmanager/context.h"

#include <algorithm>

#include "logmanager/threads/thread_state.h"

namespace boost::logging::detail {

SlotPool<Context>& contexts() {
  static constinit SlotPool<Context> pool;
  return pool;
}

Context& enterContext(const Log& _log) {
  // Who has found the log on finds the callables with which it was switched on, or later ones.
  static_cast<void>(_log.enabled.load(std::memory_order_acquire));
  ThreadState& state = threadState();
  Context* context = state.lastContext;
  const CallableSet* callables = nullptr;
  if (context == nullptr || !context->tryHold(_log.callables, callables)) {
    context = &contexts().hold(_log.callables, callables);
    // An inner statement does not take the place of the outer one's context.
    if (state.innermost == nullptr) state.lastContext = context;
  }
  context->callables = callables;
  context->log = &_log;
  context->thread = &state;
  context->outer = state.innermost;
  state.innermost = context;
  return *context;
}

void Context::findLane(MessageQueue& _queue) {
  auto place = std::ranges::find(lanes_, _queue.id(), &LaneOfQueue::queue);
  if (place == lanes_.end()) {
    std::erase_if(lanes_, [](const LaneOfQueue& _one) {
      const bool isOver = _one.lane->isAbandoned();
      if (isOver) _one.lane->release();
      return isOver;
    });
    lanes_.reserve(lanes_.size() + 1);
    lanes_.push_back(LaneOfQueue{_queue.id(), _queue.addLane()});
    place = lanes_.end() - 1;
  }
  latestQueue_ = place->queue;
  latestLane_ = place->lane;
}

void leaveContext(Context& _context) {
  _context.thread->innermost = _context.outer;
  _context.leave();
}

void abandonContextsOfOthers() {
  contexts().forEach([](Context& _context) {
    for (const Context* own = threadState().innermost; own != nullptr; own = own->outer) {
      if (own == &_context) return;
    }
    _context.holdNothing();
  });
}

}  // namespace boost::logging::detail
