// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "boost/logging/logging.hpp"

namespace testsupport {

/// Collects what reaches its appenders.
class Recorder {
 public:
  /// An appender that records "log|message".
  boost::logging::appender appender() const {
    return [state = state_](const std::string& _log, const std::string& _message) {
      const std::lock_guard<std::mutex> lock(state->lock);
      state->messages.push_back(_log + "|" + _message);
    };
  }

  std::vector<std::string> messages() const {
    const std::lock_guard<std::mutex> lock(state_->lock);
    return state_->messages;
  }

 private:
  struct State {
    std::mutex lock;
    std::vector<std::string> messages;
  };
  std::shared_ptr<State> state_ = std::make_shared<State>();
};

/// A modifier that appends a text to the message.
inline boost::logging::modifier suffix(const std::string& _text) {
  return [_text](const std::string&, std::string& _message) { _message += _text; };
}

}  // namespace testsupport
