// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

#include "boost/logging/logging.hpp"

namespace testsupport {

/// Collects the calls of the wrapped appender, and can hold it up.
class Wrapped {
 public:
  boost::logging::appender appender() {
    return [this](const std::string& _log, const std::string& _text) {
      std::unique_lock<std::mutex> lock(lock_);
      calls_.push_back(_log + "|" + _text);
      text_ += _text;
      changed_.notify_all();
      changed_.wait(lock, [this] { return !isHeldUp_; });
    };
  }

  std::string waitForText(std::size_t _size) {
    std::unique_lock<std::mutex> lock(lock_);
    changed_.wait_for(lock, std::chrono::seconds(100), [&] { return text_.size() >= _size; });
    return text_;
  }

  std::string waitFor(const std::string& _part) {
    std::unique_lock<std::mutex> lock(lock_);
    std::size_t unread = 0;
    changed_.wait_for(lock, std::chrono::seconds(100), [&] {
      if (text_.find(_part, unread) != std::string::npos) return true;
      unread = text_.size() - std::min(text_.size(), _part.size());
      return false;
    });
    return text_;
  }

  std::vector<std::string> calls() {
    const std::lock_guard<std::mutex> lock(lock_);
    return calls_;
  }

  void holdUp(bool _isHeldUp) {
    const std::lock_guard<std::mutex> lock(lock_);
    isHeldUp_ = _isHeldUp;
    changed_.notify_all();
  }

 private:
  std::mutex lock_;
  std::condition_variable changed_;
  std::vector<std::string> calls_;
  std::string text_;
  bool isHeldUp_ = false;
};

}  // namespace testsupport
