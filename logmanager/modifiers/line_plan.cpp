// SPDX-License-Identifier: MIT
#include "logmanager/modifiers/line_plan.h"

#include <atomic>
#include <cstring>

#include "logmanager/modifiers/time_stamp.h"
#include "logmanager/threads/thread_state.h"

namespace boost::logging {
namespace detail {
namespace {

using ModifierFunction = void (*)(const std::string&, std::string&);

char* put(char* _end, std::string_view _text) {
  std::memcpy(_end, _text.data(), _text.size());
  return _end + _text.size();
}

char* putPrefix(char* _end, std::string_view _logName) {
  *_end = '[';
  char* const nameEnd = put(_end + 1, _logName);
  nameEnd[0] = ']';
  nameEnd[1] = ' ';
  return nameEnd + 2;
}

struct KeptPlan {
  LinePlan plan;
  const KeptPlan* next;
};

/// A list without a lock, which a forked child could find taken.
constinit std::atomic<const KeptPlan*> keptPlans{nullptr};

}  // namespace

void LinePlan::add(const modifier& _modifier) { isUsable_ = isUsable_ && include(_modifier); }

bool LinePlan::include(const modifier& _modifier) {
  if (const auto* const time = _modifier.target<prepend_time_ms>()) {
    // A second time would overwrite the text of the first one in the state of the thread.
    if (time_ != nullptr) return false;
    time_ = time->format_;
    return addFront(Front::time);
  }
  const ModifierFunction* const function = _modifier.target<ModifierFunction>();
  if (function == nullptr) return false;
  if (*function == &prepend_prefix) {
    ++prefixCount_;
    return addFront(Front::prefix);
  }
  if (*function != &append_enter) return false;
  ++enterCount_;
  return true;
}

bool LinePlan::addFront(Front _front) {
  if (frontCount_ == mostFronts) return false;
  fronts_[frontCount_++] = _front;
  return true;
}

bool LinePlan::operator==(const LinePlan& _other) const {
  if (frontCount_ != _other.frontCount_ || fronts_ != _other.fronts_ || enterCount_ != _other.enterCount_) return false;
  return time_ == _other.time_ || (time_ != nullptr && _other.time_ != nullptr && time_->isSameAs(*_other.time_));
}

std::string_view LinePlan::timeText(ThreadState& _thread, std::int64_t _time, std::string& _memory) const {
  return time_ != nullptr ? time_->text(_time, _thread.timeText, _memory) : std::string_view();
}

char* LinePlan::putFront(char* _place, std::string_view _time, std::string_view _logName) const {
  for (std::size_t i = frontCount_; i-- > 0;)
    _place = fronts_[i] == Front::prefix ? putPrefix(_place, _logName) : put(_place, _time);
  return _place;
}

void LinePlan::makeLine(ThreadState& _thread, std::string_view _logName, std::string_view _message,
                        std::string& _line) const {
  std::string memory;
  std::string_view time;
  if (time_ != nullptr) time = timeText(_thread, messageTime(_thread), memory);
  // What the line held before is overwritten, which costs less than to clear it.
  _line.resize(frontSize(time, _logName) + _message.size() + enterCount_);
  char* const end = put(putFront(_line.data(), time, _logName), _message);
  putEnters(end);
}

const LinePlan* keptPlan(const LinePlan& _plan) {
  const KeptPlan* const first = keptPlans.load(std::memory_order_acquire);
  for (const KeptPlan* kept = first; kept != nullptr; kept = kept->next) {
    if (kept->plan == _plan) return &kept->plan;
  }
  auto* const kept = new KeptPlan{_plan, first};
  while (!keptPlans.compare_exchange_weak(kept->next, kept, std::memory_order_acq_rel, std::memory_order_acquire)) {
  }
  return &kept->plan;
}

}  // namespace detail

prepend_time_ms::prepend_time_ms(const std::string& _format) : format_(new detail::TimeStamp(_format)) {}

void prepend_time_ms::operator()(const std::string& /*_logName*/, std::string& _message) const {
  detail::ThreadState& thread = detail::threadState();
  std::string memory;
  _message.insert(0, format_->text(detail::messageTime(thread), thread.timeText, memory));
}

// The room is made at once, so that the message moves once.
void prepend_prefix(const std::string& _logName, std::string& _message) {
  _message.insert(0, _logName.size() + detail::prefixSigns, ' ');
  detail::putPrefix(_message.data(), _logName);
}

void append_enter(const std::string& /*_logName*/, std::string& _message) { _message += '\n'; }

}  // namespace boost::logging
