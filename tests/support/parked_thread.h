// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace testsupport {

/// A thread that stops at a place that the test chooses, until the test lets it continue.
class ParkedThread {
 public:
  /// Starts a thread that runs the function, which calls park() on the object; the first such call stops the thread.
  explicit ParkedThread(const std::function<void(ParkedThread&)>& _function)
      : thread_([this, _function] { _function(*this); }) {}
  ~ParkedThread() { release(); }
  ParkedThread(const ParkedThread&) = delete;
  ParkedThread& operator=(const ParkedThread&) = delete;

  /// Waits for release() or letGo(). Returns at once on the test's own thread, and if the thread has stopped before.
  void park() {
    std::unique_lock<std::mutex> lock(lock_);
    if (isParked_ || std::this_thread::get_id() == tester_) return;
    isParked_ = true;
    changed_.notify_all();
    changed_.wait(lock, [this] { return isReleased_; });
  }

  /// Waits until the thread has stopped.
  void waitUntilParked() {
    std::unique_lock<std::mutex> lock(lock_);
    changed_.wait(lock, [this] { return isParked_; });
  }

  /// Lets the thread continue.
  void letGo() {
    const std::lock_guard<std::mutex> lock(lock_);
    isReleased_ = true;
    changed_.notify_all();
  }

  /// Lets the thread continue and waits for its end.
  void release() {
    letGo();
    if (thread_.joinable()) thread_.join();
  }

 private:
  std::mutex lock_;
  std::condition_variable changed_;
  bool isParked_ = false;
  bool isReleased_ = false;
  const std::thread::id tester_ = std::this_thread::get_id();
  std::thread thread_;
};

}  // namespace testsupport
