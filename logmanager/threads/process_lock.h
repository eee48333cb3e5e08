// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/word_wait.h"

namespace boost::logging::detail {

struct ThreadState;

/// What processStamp reads.
extern constinit std::atomic<std::uint32_t> stampOfThisProcess;

/// Differs from the stamp of every process that this one was forked from. The two lowest bits are free for others.
inline std::uint32_t processStamp() { return stampOfThisProcess.load(std::memory_order_relaxed); }

/// A mutex that a fork cannot leave held: what a thread of the parent holds counts as free in the child, where that
/// thread does not exist. Without destructor and registration, so that it costs nothing to have many. It satisfies
/// Lockable, so std::lock_guard takes it.
///
///     const bool isWhole = lock_.lock();
///     if (!isWhole) data_ = {};             // in a child: a thread of the parent was changing the data
///
/// Who holds it while foreign code runs, which may fork, sets an InsideMark too.
class ProcessLock {
 public:
  constexpr ProcessLock() = default;
  ProcessLock(const ProcessLock&) = delete;
  ProcessLock& operator=(const ProcessLock&) = delete;

  /// @return false when a thread that does not exist in this process held the lock: what it guards may be half changed.
  bool lock() {
    std::uint32_t word = FREE;
    if (word_.compare_exchange_strong(word, processStamp() | HELD, std::memory_order_acquire,
                                      std::memory_order_relaxed)) {
      return true;
    }
    return lockSlowly(word);
  }

  /// @return whether the calling thread holds the lock now.
  // NOLINTNEXTLINE(readability-identifier-naming): Lockable's name
  bool try_lock();

  void unlock() {
    if ((word_.exchange(FREE, std::memory_order_release) & AWAITED) != 0) platform::wakeOne(word_);
  }

 private:
  friend class InsideMark;

  static constexpr std::uint32_t FREE = 0;
  // With the stamp of the process of the holder.
  static constexpr std::uint32_t HELD = 1;
  static constexpr std::uint32_t AWAITED = 2;
  static constexpr std::uint32_t STATE = HELD | AWAITED;

  bool lockSlowly(std::uint32_t _word);
  void keepInChild();

  std::atomic<std::uint32_t> word_{FREE};
};

/// To be called where no other thread exists any more, though some were ended anywhere, as at the end of a Windows
/// process: what they hold counts as free, as after a fork.
void freeLocksOfEndedThreads();

/// While it lives, the calling thread holds a lock and runs foreign code. When that code forks, the thread holds the
/// lock in the child, too. Marks of one thread end in reverse order.
class InsideMark {
 public:
  /// @param _thread the state of the calling thread, which has taken the lock.
  InsideMark(ThreadState& _thread, ProcessLock& _lock);
  ~InsideMark();
  InsideMark(const InsideMark&) = delete;
  InsideMark& operator=(const InsideMark&) = delete;

  /// Whether the calling thread has marked the lock, and so holds it.
  static bool isSet(const ThreadState& _thread, const ProcessLock& _lock);

  /// For the child of a fork: passes what the forking thread has marked on to the child.
  static void keepInChild(const ThreadState& _thread);

 private:
  ThreadState& thread_;
  ProcessLock& lock_;
  const InsideMark* outer_;
};

}  // namespace boost::logging::detail
