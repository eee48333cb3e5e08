// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "logmanager/appenders/lane.h"
#include "logmanager/appenders/message_queue.h"
#include "logmanager/log.h"
#include "logmanager/statement_stream.h"
#include "logmanager/threads/reader_slot.h"
#include "logmanager/threads/slot_pool.h"

namespace boost::logging::detail {

struct ThreadState;

/// What one logging statement needs while it runs. The slot keeps alive the callables that the log had at the start.
class Context : public ReaderSlot {
 public:
  Context() : stream(*this) {}

  /// The context's lane of the queue. May throw std::bad_alloc.
  Lane& laneOf(MessageQueue& _queue) {
    if (latestQueue_ != _queue.id()) findLane(_queue);
    return *latestLane_;
  }

  StatementStream stream;
  /// Working memory, kept from one statement to the next.
  std::string line;
  const Log* log = nullptr;
  const CallableSet* callables = nullptr;
  ThreadState* thread = nullptr;
  /// The statement of the same thread in whose insertion operator, appender or modifier this one runs.
  Context* outer = nullptr;

 private:
  struct LaneOfQueue {
    std::uint64_t queue;
    Lane* lane;
  };

  void findLane(MessageQueue& _queue);

  /// 0, which no queue has, while there is no lane.
  std::uint64_t latestQueue_ = 0;
  Lane* latestLane_ = nullptr;
  /// One for each queue that the context has left messages for, including queues that are gone.
  std::vector<LaneOfQueue> lanes_;
};

/// All contexts, for whoever replaces callables.
SlotPool<Context>& contexts();

/// A context for a statement of the calling thread on the log, until leaveContext. May throw std::bad_alloc.
Context& enterContext(const Log& _log);

/// For the child of a fork: releases what threads of the parent held. Never reuses their contexts, which they may have
/// been changing.
void abandonContextsOfOthers();

/// Whether the log of the context still has the callables that the context holds.
inline bool isUpToDate(const Context& _context) {
  return _context.log->callables.load(std::memory_order_relaxed) == _context.callables;
}

/// Gives the context the callables that its log has now. Otherwise a message that begins before the first set-up and
/// ends after it would go nowhere.
inline void followSetUp(Context& _context) {
  if (!isUpToDate(_context)) _context.callables = _context.hold(_context.log->callables);
}

/// The second look of a statement that found its log on, after its context got the callables: false when they may
/// belong to a log that is off (default_log_manager::publish).
inline bool isStillOn(const Context& _context) { return _context.log->enabled.load(std::memory_order_relaxed); }

/// Call it for the innermost context of the thread.
void leaveContext(Context& _context);

}  // namespace boost::logging::detail
