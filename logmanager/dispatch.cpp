// SPDX-License-Identifier: MIT
#include "logmanager/dispatch.h"

#include "logmanager/appenders/exception_report.h"
#include "logmanager/threads/thread_state.h"

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

/// Makes the line of the message.
/// @return false when there is no memory for it; that is reported.
bool modify(ThreadState& _thread, const CallableSet& _callables, const std::string& _logName, std::string_view _text,
            std::string& _line) noexcept {
  try {
    if (_callables.plan.isUsable()) {
      _callables.plan.makeLine(_thread, _logName, _text, _line);
      return true;
    }
    _line.assign(_text);
  } catch (...) {
    reportException("message", _logName);
    return false;
  }
  for (const SharedCallable& modifier : _callables.modifiers)
    callModifier(*modifier, _logName, _line);
  return true;
}

void callOwnAppender(ThreadState& _thread, const Callable& _appender, const std::string& _logName,
                     const std::string& _line) noexcept {
  try {
    _appender.own.append(_thread, _line);
  } catch (...) {
    reportException(_appender.name, _logName);
  }
}

}  // namespace

MessageScope::MessageScope(ThreadState& _thread, std::int64_t _time)
    : MessageScope(_thread, _time, _thread.depth + 1) {}

MessageScope::MessageScope(ThreadState& _thread, std::int64_t _time, int _depth)
    : thread_(_thread), outerTime_(_thread.messageTime), outerDepth_(_thread.depth) {
  thread_.depth = _depth;
  thread_.messageTime = _time;
}

MessageScope::~MessageScope() {
  thread_.depth = outerDepth_;
  thread_.messageTime = outerTime_;
}

void callAppender(const Callable& _appender, const std::string& _logName, const std::string& _message) noexcept {
  try {
    _appender.append(_logName, _message);
  } catch (...) {
    reportException(_appender.name, _logName);
  }
}

void passThrough(ThreadState& _thread, const CallableSet* _callables, const std::string& _logName,
                 std::string_view _text, std::string& _line, std::int64_t _time) noexcept {
  if (_callables == nullptr) return;
  if (_thread.depth >= DEEPEST) {
    reportEndlessLogging(_logName);
    return;
  }
  const MessageScope scope(_thread, _time);
  if (!modify(_thread, *_callables, _logName, _text, _line)) return;
  for (const SharedCallable& appender : _callables->appenders) {
    if (appender->own.isThere()) {
      callOwnAppender(_thread, *appender, _logName, _line);
    } else if (appender->gate) {
      appender->gate->pass(_thread, *appender, _logName, _line);
    } else {
      callAppender(*appender, _logName, _line);
    }
  }
}

}  // namespace boost::logging::detail
