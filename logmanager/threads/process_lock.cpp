// SPDX-License-Identifier: MIT
#include "logmanager/threads/process_lock.h"

#include "logmanager/threads/thread_state.h"
#include "platform/fork_handlers.h"

namespace boost::logging::detail {
namespace {

constexpr std::uint32_t stampStep = 8;

// Before main, or when the library is loaded: a lock can be taken without any other call of the manager.
[[maybe_unused]] const bool isRegistered = [] {
  platform::registerForkHandlers(nullptr, nullptr, &freeLocksOfEndedThreads);
  return true;
}();

}  // namespace

constinit std::atomic<std::uint32_t> stampOfThisProcess{stampStep};

void freeLocksOfEndedThreads() {
  stampOfThisProcess.fetch_add(stampStep, std::memory_order_relaxed);
  InsideMark::keepInChild(threadState());
}

// Whoever has waited takes the lock as one that others await, since it cannot know.
bool ProcessLock::lockSlowly(std::uint32_t _word) {
  const std::uint32_t mine = processStamp() | heldBit | awaitedBit;
  while (true) {
    if (isFreeHere(_word)) {
      const bool isFree = _word == freeWord;
      if (word_.compare_exchange_weak(_word, mine, std::memory_order_acquire, std::memory_order_relaxed)) {
        return isFree;
      }
    } else if ((_word & awaitedBit) != 0 ||
               word_.compare_exchange_weak(_word, _word | awaitedBit, std::memory_order_relaxed)) {
      platform::sleepWhile(word_, _word | awaitedBit);
      _word = word_.load(std::memory_order_relaxed);
    }
  }
}

bool ProcessLock::lockOrMark() {
  std::uint32_t word = word_.load(std::memory_order_relaxed);
  while (true) {
    const bool isFree = isFreeHere(word);
    const std::uint32_t next = isFree ? processStamp() | heldBit : word | markedBit;
    if (word_.compare_exchange_weak(word, next, std::memory_order_acquire, std::memory_order_relaxed)) return isFree;
  }
}

bool ProcessLock::unlockSlowly(std::uint32_t _word) {
  do {
    if ((_word & markedBit) != 0) return false;
  } while (!word_.compare_exchange_weak(_word, freeWord, std::memory_order_release, std::memory_order_relaxed));
  platform::wakeOne(word_);
  return true;
}

void ProcessLock::keepInChild() { word_.store(processStamp() | heldBit, std::memory_order_relaxed); }

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
