// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string_view>

#include "logmanager/message_cache.h"

namespace boost::logging::detail {

struct Log;

/// Keeps the messages that are logged before the first flush. Any threads may call all functions at once, unless said
/// otherwise.
class EarlyMessages {
 public:
  /// Keeps the message, unless the flush is done or the calling thread is inside an appender or modifier. Waits for the
  /// last round of a flush; during a flush, also waits rather than drop a kept message.
  /// @return false when the caller must deliver the message itself.
  bool keep(const Log& _log, std::string_view _message) {
    return phase_.load(std::memory_order_acquire) != Phase::done && keepLocked(_log, _message);
  }

  /// Whether the time of keeping is over, so that a message may go straight through.
  bool isOver() const { return phase_.load(std::memory_order_acquire) == Phase::done; }

  /// Delivers what was kept, in the order of logging, and ends the keeping. What other threads log meanwhile is kept
  /// and delivered in two more rounds; during the last one they wait, so that the flush ends however much they log.
  /// Returns when that is done, except inside an appender or modifier, which does not wait for another thread's flush.
  void flush();

  /// Around a fork, so that the child finds the object intact.
  void lockForFork() { lock_.lock(); }
  void unlockAfterFork() { lock_.unlock(); }

  /// In place of unlockAfterFork in the child, which starts with nothing kept: the parent delivers it.
  void restartInChild();

 private:
  /// In this order.
  enum class Phase { keeping, flushing, lastRound, done };

  bool keepLocked(const Log& _log, std::string_view _message);
  bool isFlushing() const;
  bool mustWait(std::string_view _message) const;
  void waitWhileFlushAdvances(std::unique_lock<std::mutex>& _lock);
  void deliverRounds(std::unique_lock<std::mutex>& _lock);
  void deliverAll(const MessageCache& _cache);

  std::atomic<Phase> phase_{Phase::keeping};
  std::mutex lock_;
  std::condition_variable done_;
  MessageCache cache_;
  /// The state of the thread that flushes.
  const void* flusher_ = nullptr;
  /// How many messages the flush has delivered.
  std::atomic<std::uint64_t> delivered_{0};
};

}  // namespace boost::logging::detail
