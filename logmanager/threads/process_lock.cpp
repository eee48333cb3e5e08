// SPDX-License-Identifier: MIT
#include "logmanager/threads/process_lock.h"

#include "logmanager/threads/thread_state.h"
#include "platform/fork_handlers.h"

namespace boost::logging::detail {
namespace {

constexpr std::uint32_t STAMP_STEP = 4;

// Before main, or when the library is loaded: a lock can be taken without any other call of the manager.
[[maybe_unused]] const bool isRegistered = [] {
  platform::registerForkHandlers(nullptr, nullptr, &freeLocksOfEndedThreads);
  return true;
}();

}  // namespace

constinit std::atomic<std::uint32_t> stampOfThisProcess{STAMP_STEP};

void freeLocksOfEndedThreads() {
  stampOfThisProcess.fetch_add(STAMP_STEP, std::memory_order_relaxed);
  InsideMark::keepInChild(threadState());
}

// NOLINTNEXTLINE(readability-identifier-naming): Lockable's name
bool ProcessLock::try_lock() {
  const std::uint32_t own = processStamp();
  std::uint32_t word = word_.load(std::memory_order_relaxed);
  while (word == FREE || (word & ~STATE) != own) {
    if (word_.compare_exchange_weak(word, own | HELD, std::memory_order_acquire, std::memory_order_relaxed)) {
      return true;
    }
  }
  return false;
}

// Whoever has waited takes the lock as one that others await, since it cannot know.
bool ProcessLock::lockSlowly(std::uint32_t _word) {
  const std::uint32_t awaited = processStamp() | HELD | AWAITED;
  while (true) {
    const bool isFree = _word == FREE;
    const bool isLeftByParent = !isFree && (_word & ~STATE) != (awaited & ~STATE);
    if (_word != awaited) {
      if (!word_.compare_exchange_weak(_word, awaited, std::memory_order_acquire, std::memory_order_relaxed)) continue;
      if (isFree || isLeftByParent) return isFree;
    }
    platform::sleepWhile(word_, awaited);
    _word = word_.load(std::memory_order_relaxed);
  }
}

void ProcessLock::keepInChild() { word_.store(processStamp() | HELD, std::memory_order_relaxed); }

InsideMark::InsideMark(ThreadState& _thread, ProcessLock& _lock)
    : thread_(_thread), lock_(_lock), outer_(_thread.innermostMark) {
  thread_.innermostMark = this;
}

InsideMark::~InsideMark() { thread_.innermostMark = outer_; }

bool InsideMark::isSet(const ThreadState& _thread, const ProcessLock& _lock) {
  for (const InsideMark* mark = _thread.innermostMark; mark != nullptr; mark = mark->outer_) {
    if (&mark->lock_ == &_lock) return true;
  }
  return false;
}

void InsideMark::keepInChild(const ThreadState& _thread) {
  for (const InsideMark* mark = _thread.innermostMark; mark != nullptr; mark = mark->outer_)
    mark->lock_.keepInChild();
}

}  // namespace boost::logging::detail
