// SPDX-License-Identifier: MIT
#include "logmanager/appenders/appender_gate.h"

#include <mutex>
#include <utility>

#include "logmanager/appenders/failure_report.h"

namespace boost::logging::detail {

void AppenderGate::deliver(ThreadState& _thread, const std::string& _logName, const std::string& _message) noexcept {
  if (InsideMark::isSet(_thread, inside_)) {
    call(_logName, _message);
    return;
  }
  if (_thread.depth == 1) {
    inside_.lock();
  } else if (!enterOrHandOver(_thread, _logName, _message)) {
    return;
  }
  const InsideMark mark(_thread, inside_);
  call(_logName, _message);
  if (!inside_.unlockUnlessMarked()) deliverHandedOver(_thread);
}

void AppenderGate::call(const std::string& _logName, const std::string& _message) noexcept {
  try {
    appender_(_logName, _message);
  } catch (...) {
    reportException(name_, _logName);
  }
}

// A thread inside that finds the mark waits for this lock, and so for the message that goes with the mark.
bool AppenderGate::enterOrHandOver(ThreadState& _thread, const std::string& _logName, const std::string& _message) {
  try {
    {
      const std::lock_guard<ProcessLock> lock(lock_);
      if (inside_.lockOrMark()) return true;
      restartInChild();
      if (keep(HandedOver{_logName, _message, messageTime(_thread), _thread.depth})) return false;
    }
    reportDropped(name_, _logName);
  } catch (...) {
    reportException(name_, _logName);
  }
  return false;
}

bool AppenderGate::keep(HandedOver _message) {
  const std::size_t size = _message.size();
  if (handedOverSize_ + size > mostHandedOver) return false;
  if (!handedOver_) handedOver_ = std::make_unique<std::deque<HandedOver>>();
  handedOver_->push_back(std::move(_message));
  handedOverSize_ += size;
  return true;
}

void AppenderGate::deliverHandedOver(ThreadState& _thread) {
  for (HandedOver next; takeOrExit(next);) {
    const MessageScope scope(_thread, next.time, next.depth);
    call(next.logName, next.message);
  }
}

// The gate is given back only where nothing can be handed over meanwhile.
bool AppenderGate::takeOrExit(HandedOver& _message) {
  const std::lock_guard<ProcessLock> lock(lock_);
  restartInChild();
  if (!handedOver_ || handedOver_->empty()) {
    inside_.unlock();
    return false;
  }
  _message = std::move(handedOver_->front());
  handedOver_->pop_front();
  handedOverSize_ -= _message.size();
  return true;
}

void AppenderGate::restartInChild() {
  if (process_ == processStamp()) return;
  process_ = processStamp();
  static_cast<void>(handedOver_.release());
  handedOverSize_ = 0;
}

}  // namespace boost::logging::detail
