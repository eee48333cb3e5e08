// SPDX-License-Identifier: MIT
#include "logmanager/appender_gate.h"

#include <mutex>
#include <utility>

#include "logmanager/appenders/exception_report.h"
#include "logmanager/callable.h"
#include "logmanager/dispatch.h"
#include "logmanager/threads/thread_state.h"

namespace boost::logging::detail {

void AppenderGate::pass(ThreadState& _thread, const Callable& _appender, const std::string& _logName,
                        const std::string& _message) noexcept {
  if (InsideMark::isSet(_thread, inside_)) {
    callAppender(_appender, _logName, _message);
    return;
  }
  try {
    if (!enter(_thread, _appender, _logName, _message)) return;
  } catch (...) {
    reportException(_appender.name, _logName);
    return;
  }
  const InsideMark mark(_thread, inside_);
  callAppender(_appender, _logName, _message);
  exit(_thread, _appender);
}

// false when the message need not be passed on: it is handed over, or dropped.
bool AppenderGate::enter(ThreadState& _thread, const Callable& _appender, const std::string& _logName,
                         const std::string& _message) {
  const bool isInsideAnother = _thread.depth > 1;
  if (!isInsideAnother) {
    inside_.lock();
    return true;
  }
  {
    const std::lock_guard<ProcessLock> lock(lock_);
    if (inside_.try_lock()) return true;
    restartInChild();
    if (handOver(HandedOver{_logName, _message, messageTime(_thread), _thread.depth})) return false;
  }
  reportDropped(_appender.name, _logName);
  return false;
}

bool AppenderGate::handOver(HandedOver _message) {
  const std::size_t size = _message.size();
  if (handedOverSize_ + size > MOST_HANDED_OVER) return false;
  if (!handedOver_) handedOver_ = std::make_unique<std::deque<HandedOver>>();
  handedOver_->push_back(std::move(_message));
  handedOverSize_ += size;
  return true;
}

void AppenderGate::exit(ThreadState& _thread, const Callable& _appender) {
  while (!openUnlessHandedOver())
    passOn(_thread, _appender);
}

bool AppenderGate::openUnlessHandedOver() {
  const std::lock_guard<ProcessLock> lock(lock_);
  if (handedOver_) {
    restartInChild();
    if (handedOver_ && !handedOver_->empty()) return false;
  }
  inside_.unlock();
  return true;
}

// Only the thread inside takes out, so there still is a message.
void AppenderGate::passOn(ThreadState& _thread, const Callable& _appender) {
  HandedOver handedOver;
  {
    const std::lock_guard<ProcessLock> lock(lock_);
    handedOver = std::move(handedOver_->front());
    handedOver_->pop_front();
    handedOverSize_ -= handedOver.size();
  }
  const MessageScope scope(_thread, handedOver.time, handedOver.depth);
  callAppender(_appender, handedOver.logName, handedOver.message);
}

void AppenderGate::restartInChild() {
  if (process_ == processStamp()) return;
  process_ = processStamp();
  static_cast<void>(handedOver_.release());
  handedOverSize_ = 0;
}

}  // namespace boost::logging::detail
