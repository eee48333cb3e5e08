// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <boost/thread/condition_variable.hpp>
#include <boost/thread/mutex.hpp>
#include <boost/thread/thread.hpp>
#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "boost/logging/callables.hpp"
#include "logmanager/appenders/batch_delivery.h"
#include "logmanager/appenders/file_notes.h"
#include "logmanager/appenders/message_gaps.h"
#include "logmanager/appenders/message_queue.h"

namespace boost::logging::detail {

/// Hands what callers leave in a queue to the wrapped appender: by a thread, which somebody else starts, as long as
/// there is one, else on the thread of the caller. Any thread may call any function, unless said otherwise.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): the parts of the queue do not share cache lines
class BatchWriter {
 public:
  /// @param _file the file that the wrapped appender writes to; empty when nobody has to know.
  BatchWriter(const appender& _wrapped, int _sleepMs, const std::string& _file = std::string());
  MessageQueue& queue() { return queue_; }
  /// For a caller that has left a message and was asked for attention: wakes the thread, or delivers where it has
  /// ended.
  /// @return true when a thread has to be started.
  bool attend();
  /// To be called just before the thread is started, and when it could not be.
  /// @return false when it was started before.
  bool noteThread();
  void noteNoThread();
  /// The body of the thread: delivers until the stop flag is set and nothing is left.
  void run();
  /// For the last copy of the appender: sets the stop flag and, when there is a thread, sleeps 1.5 intervals.
  void stop();
  /// For the end of the process or of the library: sets the stop flag and waits until all is delivered, but not beyond
  /// the deadline. Where the thread is gone, as threads are when a Windows process ends, delivers here, unless the
  /// thread was inside an appender other than write_to_file, whose state nobody knows then. On the thread itself, which
  /// an appender has let call exit: delivers all but what that appender was given.
  /// @param _threadIsGone asks whether the thread has ended, however it did.
  void finish(std::chrono::steady_clock::time_point _deadline, const std::function<bool()>& _threadIsGone);

  /// Whether the stop flag is set, and whether run() has nothing left to do.
  bool isStopped() const { return isStopped_.load(std::memory_order_relaxed); }
  bool hasEnded() const { return hasEnded_.load(std::memory_order_acquire); }

  /// Around a fork. The child begins without messages, which the parent delivers, and without the thread.
  void lockForFork();
  void unlockAfterFork();
  /// @return whether the thread is the one that forked, and so goes on in the child.
  bool restartInChild();

 private:
  using Lock = boost::unique_lock<boost::mutex>;
  enum class Writer { none, running, ended };

  void takeOver();
  void finishOnThread(Lock& _lock);
  void deliverOnAnotherThread(Lock& _lock);
  BatchDelivery::Result deliverBatch(Lock& _lock, BatchDelivery& _delivery, bool _isLast);
  void deliverAll(Lock& _lock, BatchDelivery& _delivery);
  void noteMore();
  void deliverRest(Lock& _lock);
  void pause(Lock& _lock);
  void sleepShortly(Lock& _lock);
  void waitForMessage(Lock& _lock);

  MessageQueue queue_;
  const NotedQueue noted_;
  /// Emptied by the thread when it ends and nobody has the appender any more.
  appender wrapped_;
  const int sleepMs_;
  std::atomic<bool> isStopped_{false};
  std::atomic<bool> hasEnded_{false};

  // Pointers, since those who find that another user was ended have to leave them as they are.
  std::unique_ptr<boost::mutex> lock_;
  Writer writer_ = Writer::none;
  boost::thread::id threadId_;
  /// Whether the thread has to be woken for a message.
  bool isWaiting_ = false;
  bool isDelivering_ = false;
  boost::thread::id deliverer_;
  boost::thread::id exiting_;
  /// Whether a message was left with whoever delivers.
  bool hasMore_ = false;
  bool hasOwnMore_ = false;
  bool isUnused_ = false;
  MessageGaps gaps_;
  /// Of the thread.
  std::unique_ptr<BatchDelivery> delivery_;
  std::unique_ptr<boost::condition_variable> wake_;
  std::unique_ptr<boost::condition_variable> ended_;
};

}  // namespace boost::logging::detail
