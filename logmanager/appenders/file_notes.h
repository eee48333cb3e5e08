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

/// How many messages did not reach a file and are not yet told in it; why the last one did not.
struct UntoldLoss {
  std::uint64_t count = 0;
  platform::ErrorCode error = platform::noError;
};

/// For who leaves a file without having told in it what was lost: keeps that for the next one who writes to the path.
void leaveUntoldLoss(const std::string& _path, const UntoldLoss& _loss) noexcept;

/// Whether there is an untold loss of any file. Takes no lock.
bool isAnyLossUntold();

/// What was left for that path, which the caller is to tell. To be asked by each who opens the file.
UntoldLoss takeUntoldLoss(const std::string& _path) noexcept;

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
