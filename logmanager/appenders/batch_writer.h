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

/// Passes what callers leave in a queue to the wrapped appender: on a thread, which somebody else starts, as long as
/// there is one, else on the thread of the caller. Any thread may call any function, unless said otherwise.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): the parts of the queue do not share cache lines
class BatchWriter {
 public:
  /// @param _file the file that the wrapped appender writes to; empty when nobody has to know.
  BatchWriter(const appender& _wrapped, int _sleepMs, const std::string& _file = std::string());
  MessageQueue& queue() { return queue_; }
  /// For a caller that has left a message and whose attention is wanted: wakes the thread, or delivers if the thread
  /// has ended.
  /// @return true when the caller must start a thread.
  bool attend();
  /// Call one just before starting the thread, the other if that fails.
  /// @return false when it was already started.
  bool noteThread();
  void noteNoThread();
  /// The body of the thread: delivers until the stop flag is set and no message is left.
  void run();
  /// For the last copy of the appender: sets the stop flag and, if there is a thread, sleeps 1.5 intervals.
  void stop();
  /// For the end of the process or of the library: sets the stop flag and waits until everything is delivered, but not
  /// beyond the deadline. If the thread is gone, as at the end of a Windows process, delivers here, unless the thread
  /// was inside an appender other than write_to_file, whose state is unknown then. On the thread itself, when an
  /// appender calls exit: delivers all but what that appender was given.
  /// @param _threadIsGone says whether the thread has ended in any way.
  void finish(std::chrono::steady_clock::time_point _deadline, const std::function<bool()>& _threadIsGone);

  /// Whether run() has nothing left to do.
  bool hasEnded() const { return hasEnded_.load(std::memory_order_acquire); }

  /// Around a fork. The child starts without messages, which the parent delivers, and without the thread.
  void lockForFork();
  void unlockAfterFork();
  /// @return whether the thread itself forked, and so goes on in the child.
  bool restartInChild();

 private:
  using Lock = boost::unique_lock<boost::mutex>;
  enum class Writer { none, running, ended };

  void takeOver();
  void goOnWithoutThread(Lock& _lock);
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
  /// The thread empties it when it ends and nobody has the appender any more.
  appender wrapped_;
  const int sleepMs_;
  std::atomic<bool> isStopped_{false};
  std::atomic<bool> hasEnded_{false};

  // A pointer, because whoever finds that another user was ended must leave the mutex alone.
  std::unique_ptr<boost::mutex> lock_;
  Writer writer_ = Writer::none;
  boost::thread::id threadId_;
  /// Whether a message must wake the thread.
  bool isWaiting_ = false;
  bool isDelivering_ = false;
  boost::thread::id deliverer_;
  boost::thread::id exiting_;
  /// Whether a message was left with whoever delivers.
  bool hasMore_ = false;
  bool hasOwnMore_ = false;
  bool isUnused_ = false;
  MessageGaps gaps_;
  /// Of the thread, even after its end. In the child of a fork there is none until a thread is to be started.
  std::unique_ptr<BatchDelivery> delivery_;
  boost::condition_variable wake_;
  boost::condition_variable ended_;
};

}  // namespace boost::logging::detail
