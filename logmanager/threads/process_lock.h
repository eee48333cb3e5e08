// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/word_wait.h"

namespace boost::logging::detail {

struct ThreadState;

/// What processStamp reads.
extern constinit std::atomic<std::uint32_t> stampOfThisProcess;

/// Differs from the stamp of every process that this one was forked from. Leaves the three lowest bits free.
inline std::uint32_t processStamp() { return stampOfThisProcess.load(std::memory_order_relaxed); }

/// A mutex that a fork cannot leave held: if a thread of the parent holds it, it counts as free in the child, where
/// that thread does not exist. Has no destructor and no registration, so many cost nothing. Works with std::lock_guard.
///
///     const bool isWhole = lock_.lock();
///     if (!isWhole) data_ = {};             // in a child: a thread of the parent was changing the data
///
/// Whoever holds it while foreign code runs, which may fork, sets an InsideMark too.
class ProcessLock {
 public:
  constexpr ProcessLock() = default;
  ProcessLock(const ProcessLock&) = delete;
  ProcessLock& operator=(const ProcessLock&) = delete;

  /// @return false when a thread that does not exist in this process held the lock: the data may be half changed.
  bool lock() {
    std::uint32_t word = freeWord;
    if (word_.compare_exchange_strong(word, processStamp() | heldBit, std::memory_order_acquire,
                                      std::memory_order_relaxed)) {
      return true;
    }
    return lockSlowly(word);
  }

  void unlock() {
    if ((word_.exchange(freeWord, std::memory_order_release) & awaitedBit) != 0) platform::wakeOne(word_);
  }

  /// Takes the lock if it is free; otherwise marks it, so that unlockUnlessMarked of its holder fails. Does so in one
  /// step: either the caller has the lock or the holder finds the mark.
  /// @return whether the calling thread holds the lock now.
  bool lockOrMark();

  /// @return false, with the lock still held, when it was marked since it was taken.
  bool unlockUnlessMarked() {
    std::uint32_t word = processStamp() | heldBit;
    return word_.compare_exchange_strong(word, freeWord, std::memory_order_release, std::memory_order_relaxed) ||
           unlockSlowly(word);
  }

 private:
  friend class InsideMark;

  static constexpr std::uint32_t freeWord = 0;
  // With the stamp of the process of the holder.
  static constexpr std::uint32_t heldBit = 1;
  static constexpr std::uint32_t awaitedBit = 2;
  static constexpr std::uint32_t markedBit = 4;
  static constexpr std::uint32_t stateBits = heldBit | awaitedBit | markedBit;

  static bool isFreeHere(std::uint32_t _word) { return _word == freeWord || (_word & ~stateBits) != processStamp(); }
  bool lockSlowly(std::uint32_t _word);
  bool unlockSlowly(std::uint32_t _word);
  void keepInChild();

  std::atomic<std::uint32_t> word_{freeWord};
};

/// Call it when no other thread exists any more, though some were ended anywhere, as at the end of a Windows process:
/// what they hold counts as free, as after a fork.
void freeLocksOfEndedThreads();

/// While it lives, the calling thread holds a lock and runs foreign code. If that code forks, the thread holds the lock
/// in the child, too. Marks of one thread end in reverse order.
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
