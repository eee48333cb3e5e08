// SPDX-License-Identifier: MIT
#include "logmanager/dispatch.h"

#include "logmanager/exception_report.h"
#include "logmanager/thread_state.h"

namespace boost::logging::detail {
namespace {

constexpr int DEEPEST = 8;

void callModifier(const Callable& _modifier, const std::string& _logName, std::string& _message) noexcept {
  try {
    _modifier.modify(_logName, _message);
  } catch (...) {
    reportException(_modifier.name, _logName);
  }
}

}  // namespace

MessageScope::MessageScope(std::int64_t _time) : outerTime_(threadState().messageTime) {
  ThreadState& state = threadState();
  ++state.depth;
  state.messageTime = _time;
}

MessageScope::~MessageScope() {
  ThreadState& state = threadState();
  --state.depth;
  state.messageTime = outerTime_;
}

void callAppender(const Callable& _appender, const std::string& _logName, const std::string& _message) noexcept {
  try {
    _appender.append(_logName, _message);
  } catch (...) {
    reportException(_appender.name, _logName);
  }
}

void passThrough(const CallableSet* _callables, const std::string& _logName, std::string& _message,
                 std::int64_t _time) noexcept {
  if (_callables == nullptr) return;
  if (threadState().depth >= DEEPEST) {
    reportEndlessLogging(_logName);
    return;
  }
  const MessageScope scope(_time);
  for (const SharedCallable& modifier : _callables->modifiers)
    callModifier(*modifier, _logName, _message);
  for (const SharedCallable& appender : _callables->appenders) {
    if (appender->gate) {
      appender->gate->pass(*appender, _logName, _message);
    } else {
      callAppender(*appender, _logName, _message);
    }
  }
}

}  // namespace boost::logging::detail
