// SPDX-License-Identifier: MIT
#include "logmanager/appender_gate.h"

#include <utility>

#include "logmanager/appenders/exception_report.h"
#include "logmanager/callable.h"
#include "logmanager/dispatch.h"
#include "logmanager/threads/thread_state.h"

namespace boost::logging::detail {

void AppenderGate::pass(const Callable& _appender, const std::string& _logName, const std::string& _message) noexcept {
  const ThreadState& self = threadState();
  if (owner_.load(std::memory_order_relaxed) == &self) {
    callAppender(_appender, _logName, _message);
    return;
  }
  try {
    const bool isInsideAnother = self.depth > 1;
    if (!isInsideAnother) {
      inside_.lock();
    } else if (!inside_.try_lock()) {
      leaveMessage(_appender, _logName, _message);
      return;
    }
  } catch (...) {
    reportException(_appender.name, _logName);
    return;
  }
  owner_.store(&self, std::memory_order_relaxed);
  callAppender(_appender, _logName, _message);
  leave(_appender);
}

void AppenderGate::leaveMessage(const Callable& _appender, const std::string& _logName, const std::string& _message) {
  {
    const std::lock_guard<std::mutex> lock(leftLock_);
    left_.push_back(Left{_logName, _message, messageTime(threadState())});
    isLeft_.store(true);
  }
  // The thread that was inside may have gone without having seen the message.
  if (!inside_.try_lock()) return;
  owner_.store(&threadState(), std::memory_order_relaxed);
  leave(_appender);
}

void AppenderGate::leave(const Callable& _appender) {
  while (true) {
    passOnLeft(_appender);
    owner_.store(nullptr, std::memory_order_relaxed);
    inside_.unlock();
    if (!isLeft_.load() || !inside_.try_lock()) return;
    owner_.store(&threadState(), std::memory_order_relaxed);
  }
}

void AppenderGate::passOnLeft(const Callable& _appender) {
  if (!isLeft_.load()) return;
  Left left;
  while (takeLeft(left)) {
    const MessageScope scope(threadState(), left.time);
    callAppender(_appender, left.logName, left.message);
  }
}

bool AppenderGate::takeLeft(Left& _left) {
  if (!isLeft_.load()) return false;
  const std::lock_guard<std::mutex> lock(leftLock_);
  if (left_.empty()) return false;
  _left = std::move(left_.front());
  left_.pop_front();
  if (left_.empty()) isLeft_.store(false);
  return true;
}

}  // namespace boost::logging::detail
