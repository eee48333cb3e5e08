// SPDX-License-Identifier: MIT
#include "logmanager/line_plan.h"

#include <algorithm>
#include <cstring>

#include "logmanager/modifiers/prepend_time_ms.h"
#include "logmanager/threads/thread_state.h"

namespace boost::logging::detail {
namespace {

using ModifierFunction = void (*)(const std::string&, std::string&);

/// How many bytes the prefix has besides the name of the log.
constexpr std::size_t PREFIX_SIGNS = 3;

char* put(char* _end, std::string_view _text) {
  std::memcpy(_end, _text.data(), _text.size());
  return _end + _text.size();
}

char* putPrefix(char* _end, std::string_view _logName) {
  *_end = '[';
  char* const nameEnd = put(_end + 1, _logName);
  nameEnd[0] = ']';
  nameEnd[1] = ' ';
  return _end + _logName.size() + PREFIX_SIGNS;
}

}  // namespace

LinePlan::LinePlan(const std::vector<SharedCallable>& _modifiers)
    : isUsable_(std::ranges::all_of(_modifiers,
                                    [this](const SharedCallable& _modifier) { return include(_modifier->modify); })) {}

bool LinePlan::include(const boost::logging::modifier& _modifier) {
  if (const auto* const time = _modifier.target<prepend_time_ms>()) return addTime(time->format_);
  const ModifierFunction* const function = _modifier.target<ModifierFunction>();
  if (function == nullptr) return false;
  if (*function == &prepend_prefix) return addPrefix();
  if (*function != &append_enter) return false;
  ++enterCount_;
  return true;
}

// A second time would overwrite the text of the first one in the state of the thread.
bool LinePlan::addTime(const boost::shared_ptr<const TimeStamp>& _time) {
  if (time_ != nullptr) return false;
  time_ = _time;
  return addFront(Front::time);
}

bool LinePlan::addPrefix() {
  ++prefixCount_;
  return addFront(Front::prefix);
}

bool LinePlan::addFront(Front _front) {
  if (frontCount_ == MOST_FRONTS) return false;
  fronts_[frontCount_++] = _front;
  return true;
}

void LinePlan::makeLine(ThreadState& _thread, std::string_view _logName, std::string_view _message,
                        std::string& _line) const {
  std::string memory;
  std::string_view time;
  if (time_ != nullptr) time = time_->text(messageTime(_thread), _thread.timeText, memory);
  // What the line held before is overwritten, which costs less than to clear it.
  _line.resize(time.size() + prefixCount_ * (_logName.size() + PREFIX_SIGNS) + _message.size() + enterCount_);
  char* end = _line.data();
  for (std::size_t i = frontCount_; i-- > 0;)
    end = fronts_[i] == Front::prefix ? putPrefix(end, _logName) : put(end, time);
  end = put(end, _message);
  for (std::size_t i = 0; i < enterCount_; ++i)
    end[i] = '\n';
}

}  // namespace boost::logging::detail
