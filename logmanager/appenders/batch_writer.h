// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <boost/thread/condition_variable.hpp>
#include <boost/thread/mutex.hpp>
#include <boost/thread/thread.hpp>
#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

#include "boost/logging/callables.hpp"

namespace boost::logging::detail {

/// What the copies of a ts_appender share: the text that callers left, and the thread that passes it to the wrapped
/// appender. The thread owns the object as well, and outlives the copies until all text is delivered. It ends with the
/// stop flag; what comes later is delivered by the callers themselves. Functions may be called from any thread at once
/// unless said otherwise.
class BatchWriter : public std::enable_shared_from_this<BatchWriter> {
 public:
  BatchWriter(const appender& _wrapped, int _sleepMs);
  ~BatchWriter();
  BatchWriter(const BatchWriter&) = delete;
  BatchWriter& operator=(const BatchWriter&) = delete;

  /// Leaves the text for the thread. The call that starts the thread then sleeps 100 ms.
  void append(const std::string& _text);

  /// For the last copy: sets the stop flag and, when there is a thread, sleeps one and a half intervals.
  void stop();

  /// For the end of the process or of the library: sets the stop flag and waits until all text is delivered, but not
  /// beyond the deadline. Where the thread is gone, as threads are when a Windows process ends, delivers the text here,
  /// unless the thread was inside an appender other than write_to_file, whose state nobody knows then.
  void finish(std::chrono::steady_clock::time_point _deadline);

  /// Around a fork. The child begins without text, which the parent delivers, and without the thread.
  void lockForFork() { lock_.lock(); }
  void unlockAfterFork() { lock_.unlock(); }
  void restartInChild();

 private:
  static constexpr std::size_t CACHE_LINE = 64;

  using Lock = boost::unique_lock<boost::mutex>;
  enum class Writer { none, running, ended };

  Lock lockBriefly();
  bool lockInTime(Lock& _lock, std::chrono::steady_clock::time_point _deadline);
  void startAndSleep();
  bool startThread();
  void run();
  void deliverBatch(Lock& _lock, std::string& _batch);
  void deliverRest(Lock& _lock);
  void pause(Lock& _lock);
  void pollForText();
  void waitForText(Lock& _lock);
  void endIfThreadIsGone(Lock& _lock);

  const appender wrapped_;
  const int sleepMs_;

  /// Whether the cache has text, for the thread to ask without the lock. Apart from what callers write for every
  /// message, as the thread goes on reading it while it polls.
  alignas(CACHE_LINE) std::atomic<bool> hasText_{false};
  std::atomic<bool> isStopped_{false};

  alignas(CACHE_LINE) boost::mutex lock_;
  std::string cache_;
  Writer writer_ = Writer::none;
  /// Whether the thread has to be woken for a message.
  bool isWaiting_ = false;
  bool isDelivering_ = false;
  // Pointers, since a forked child has to abandon them as they are: their other user does not exist there.
  /// What the thread delivers.
  std::unique_ptr<std::string> batch_;
  /// Set when the thread's batch has reached the file of a write_to_file.
  std::atomic<bool> isAppended_{false};
  std::unique_ptr<boost::condition_variable> wake_;
  std::unique_ptr<boost::condition_variable> ended_;
  std::unique_ptr<boost::thread> thread_;
};

}  // namespace boost::logging::detail
