// SPDX-License-Identifier: MIT
#pragma once

#include <boost/logging/logging.hpp>
#include <mutex>
#include <string>
#include <vector>

#include "logsetup/log_manager_binding.h"

namespace testsupport {

/// While it lives, keeps every message that passes through the modifiers of the logs.
class LogProbe {
 public:
  LogProbe() {
    Quillmark_logging::addAppender(
        "*",
        [this](const std::string&, const std::string& _message) {
          const std::scoped_lock lock(mutex_);
          messages_.push_back(_message);
        },
        name, Quillmark_logging::callableIndex);
  }
  ~LogProbe() { Quillmark_logging::deleteAppender("*", name); }
  LogProbe(const LogProbe&) = delete;
  LogProbe& operator=(const LogProbe&) = delete;

  std::vector<std::string> messages() const {
    const std::scoped_lock lock(mutex_);
    return messages_;
  }

  /// The one message of a statement on a log; empty when the log is off.
  std::string logged(const std::string& _log, const std::string& _text) const {
    const std::size_t before = messages().size();
    QMRK_LOG(boost::logging::logger(_log)) << _text;
    const auto after = messages();
    return after.size() == before + 1 ? after.back() : "";
  }

 private:
  static constexpr char name[] = "LogProbe";
  mutable std::mutex mutex_;
  std::vector<std::string> messages_;
};

}  // namespace testsupport
