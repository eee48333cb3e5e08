// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

#include "boost/logging/logging.hpp"
#include "logmanager/appenders/batch_writer.h"

namespace testsupport {

/// A place where a thread waits until the test lets it go on.
class Parking {
 public:
  void park() {
    std::unique_lock<std::mutex> lock(lock_);
    isParked_ = true;
    changed_.notify_all();
    changed_.wait(lock, [this] { return isOpen_; });
  }

  void waitUntilParked() {
    std::unique_lock<std::mutex> lock(lock_);
    changed_.wait(lock, [this] { return isParked_; });
  }

  void open() {
    const std::lock_guard<std::mutex> lock(lock_);
    isOpen_ = true;
    changed_.notify_all();
  }

 private:
  std::mutex lock_;
  std::condition_variable changed_;
  bool isParked_ = false;
  bool isOpen_ = false;
};

/// A batch writer whose thread counts as ended while it is parked, as a Windows process finds it at its end.
class ParkedWriter {
 public:
  explicit ParkedWriter(const boost::logging::appender& _wrapped) : writer_(_wrapped, 0) {}
  ~ParkedWriter() {
    parking_.open();
    thread_.join();
  }
  ParkedWriter(const ParkedWriter&) = delete;
  ParkedWriter& operator=(const ParkedWriter&) = delete;

  /// Starts the thread, which parks with the text, and leaves another text.
  void start(const std::string& _parked, const std::string& _later) {
    writer_.noteThread();
    writer_.queue().push(_parked);
    thread_ = std::thread([this] { writer_.run(); });
    parking_.waitUntilParked();
    writer_.queue().push(_later);
  }

  void park() { parking_.park(); }

  void finish() {
    writer_.finish(std::chrono::steady_clock::now() + std::chrono::seconds(5), [] { return true; });
  }

 private:
  Parking parking_;
  boost::logging::detail::BatchWriter writer_;
  std::thread thread_;
};

}  // namespace testsupport
