// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <string_view>

#include "logmanager/message_cache.h"

namespace boost::logging::detail {

struct Log;

/// Keeps the messages that are logged before the first flush. All functions may be called from any thread at once.
class EarlyMessages {
 public:
  /// Keeps the message, unless the flush is done.
  /// @return false when the caller has to deliver the message itself.
  bool keep(const Log& _log, std::string_view _message) {
    return isKeeping_.load(std::memory_order_acquire) && keepLocked(_log, _message);
  }

  /// Delivers what was kept, and what other threads log meanwhile, in the order of logging; from then on nothing is
  /// kept. Returns when that is done, except inside an appender or modifier, which does not wait for another thread's
  /// flush.
  void flush();

 private:
  bool keepLocked(const Log& _log, std::string_view _message);

  std::atomic<bool> isKeeping_{true};
  std::mutex lock_;
  std::condition_variable done_;
  MessageCache cache_;
  /// The state of the thread that flushes.
  const void* flusher_ = nullptr;
};

}  // namespace boost::logging::detail
