// SPDX-License-Identifier: MIT
#include "logmanager/callable_set.h"

#include <algorithm>

#include "logmanager/appenders/failure_report.h"
#include "logmanager/appenders/shared_append_file.h"
#include "logmanager/appenders/ts_appender.h"

namespace boost::logging::detail {
namespace {

constexpr int maxNesting = 8;

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

void deliverTo(ThreadState& _thread, const Callable& _appender, const std::string& _logName,
               const std::string& _line) noexcept {
  if (_appender.gate) {
    _appender.gate->deliver(_thread, _logName, _line);
    return;
  }
  try {
    if (_appender.file != nullptr) {
      _appender.file->append(_line, messageTime(_thread));
    } else if (_appender.writer != nullptr) {
      _appender.writer->append(_line);
    } else {
      _appender.append(_logName, _line);
    }
  } catch (...) {
    reportException(_appender.name, _logName);
  }
}

}  // namespace

CallableSet::CallableSet(const std::vector<SharedCallable>& _callables) {
  for (const SharedCallable& callable : _callables)
    (callable->kind == CallableKind::modifier ? modifiers : appenders).push_back(callable);
  const auto index = [](const SharedCallable& _callable) { return _callable->index; };
  std::ranges::stable_sort(modifiers, {}, index);
  std::ranges::stable_sort(appenders, {}, index);
  for (const SharedCallable& modifier : modifiers)
    plan.add(modifier->modify);
  writer = appenders.size() == 1 && plan.isUsable() ? appenders.front()->writer : nullptr;
  writersPlan = writer != nullptr ? keptPlan(plan) : nullptr;
  isForFilesOnly = plan.isUsable() && std::ranges::all_of(appenders, [](const SharedCallable& _appender) {
                     return _appender->file != nullptr;
                   });
}

const std::vector<SharedCallable>& CallableSet::of(CallableKind _kind) const {
  return _kind == CallableKind::modifier ? modifiers : appenders;
}

bool CallableSet::operator==(const CallableSet& _other) const {
  return modifiers == _other.modifiers && appenders == _other.appenders;
}

void deliverThrough(ThreadState& _thread, const CallableSet* _callables, const std::string& _logName,
                    std::string_view _text, std::string& _line, std::int64_t _time) noexcept {
  if (_callables == nullptr) return;
  if (_thread.depth >= maxNesting) {
    reportEndlessLogging(_logName);
    return;
  }
  const MessageScope scope(_thread, _time);
  if (!modify(_thread, *_callables, _logName, _text, _line)) return;
  for (const SharedCallable& appender : _callables->appenders)
    deliverTo(_thread, *appender, _logName, _line);
}

}  // namespace boost::logging::detail
