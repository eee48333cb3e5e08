// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/errors.h"

namespace boost::logging::detail {

class MessageQueue;

// What list_files lists. Any thread may call; nothing here is called while all goes well. The observer is called with
// no lock held here, so its callers hold none either.

/// Notes messages that could not be written to a file, and calls the observer.
void noteLoss(const std::string& _path, std::uint64_t _count, platform::ErrorCode _error) noexcept;

/// Notes that a file which has lost messages was written again, and calls the observer.
void noteRecovery(const std::string& _path) noexcept;

/// For who leaves a file that could not be written again: whoever writes it next is to note the recovery.
void leaveFailing(const std::string& _path) noexcept;

/// Whether a file was left so; true for the first who asks only. For who opens the file, or looks whether it is still
/// the same; takes no lock as a rule.
bool takeOverFailing(const std::string& _path) noexcept;

/// Calls the observer because of a queue that begins or ends to drop messages.
void noteDropping() noexcept;

/// While it lives, the bytes and drops of a queue count as those of a file; afterwards only the drops.
class NotedQueue {
 public:
  /// @param _path empty: the queue is not listed. May throw std::bad_alloc.
  NotedQueue(const std::string& _path, const MessageQueue& _queue);
  ~NotedQueue();
  NotedQueue(const NotedQueue&) = delete;
  NotedQueue& operator=(const NotedQueue&) = delete;

  const std::string& path() const { return path_; }
  const MessageQueue& queue() const { return queue_; }

 private:
  const std::string path_;
  const MessageQueue& queue_;
};

}  // namespace boost::logging::detail
