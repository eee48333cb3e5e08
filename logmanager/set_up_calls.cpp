// SPDX-License-Identifier: MIT
#include "logmanager/set_up_calls.h"

#include <algorithm>
#include <string>
#include <utility>

#include "logmanager/default_log_manager.h"
#include "logmanager/names/short_number.h"

namespace boost::logging {
namespace detail {
namespace {

/// Of the calling thread, those of the manager that it turned to last.
NotedCalls*& latestNoted() {
  static thread_local constinit NotedCalls* noted = nullptr;
  return noted;
}

bool hasName(SetUpCalls::Action _action) {
  return _action == SetUpCalls::Action::disconnectAppender || _action == SetUpCalls::Action::disconnectModifier;
}

// A run of "*" means no more than one, so that patterns which select the same are the same.
std::string withoutRunsOfStars(std::string_view _pattern) {
  std::string result(_pattern);
  const auto areStars = [](char _left, char _right) { return _left == '*' && _right == '*'; };
  result.erase(std::unique(result.begin(), result.end(), areStars), result.end());
  return result;
}

}  // namespace

void SetUpCalls::connect(std::string_view _logs, const SharedCallable& _callable) {
  callables_.push_back(_callable);
  try {
    note(Action::connect, _logs, {});
  } catch (...) {
    callables_.pop_back();
    throw;
  }
}

void SetUpCalls::disconnect(std::string_view _logs, CallableKind _kind, std::string_view _name) {
  note(_kind == CallableKind::modifier ? Action::disconnectModifier : Action::disconnectAppender, _logs, _name);
}

void SetUpCalls::note(Action _action, std::string_view _logs, std::string_view _name) {
  const std::size_t star = _logs.find('*');
  const bool isPlain = star == std::string_view::npos;
  if (!isPlain && _logs.find("**", star) != std::string_view::npos) {
    note(_action, withoutRunsOfStars(_logs), _name);
    return;
  }
  const std::size_t head = _logs.size() * kindCount + 2 * static_cast<std::size_t>(_action) + (isPlain ? 1 : 0);
  const std::size_t nameSize = hasName(_action) ? shortNumberSize(_name.size()) + _name.size() : 0;
  if (records_ == nullptr) records_ = std::make_shared<RecordBlocks>();
  char* to = records_->add(shortNumberSize(head) + _logs.size() + nameSize);
  to = writeShortNumber(to, head);
  to += _logs.copy(to, _logs.size());
  if (hasName(_action)) _name.copy(writeShortNumber(to, _name.size()), _name.size());
  ++size_;
}

SetUpCalls::Call SetUpCalls::read(const char*& _record) {
  const auto readText = [&_record](std::size_t _size) {
    const std::string_view text(_record, _size);
    _record += _size;
    return text;
  };
  const std::size_t head = readShortNumber(_record);
  const auto action = static_cast<Action>(head % kindCount / 2);
  const NamePattern pattern(readText(head / kindCount), head % 2 == 1);
  const std::string_view name = hasName(action) ? readText(readShortNumber(_record)) : std::string_view();
  return {action, pattern, name};
}

void SetUpCalls::shrink(std::size_t _size) noexcept {
  while (size_ > _size) {
    std::size_t count = 0;
    std::size_t keptCallables = 0;
    RecordBlocks::Place firstForgotten = 0;
    records_->forEach([&](RecordBlocks::Place _place, const char* _record) {
      const char* const begin = _record;
      const bool connects = read(_record).action == Action::connect;
      if (count == _size) firstForgotten = _place;
      if (count++ < _size && connects) ++keptCallables;
      return static_cast<std::size_t>(_record - begin);
    });
    records_->cut(firstForgotten);
    size_ = _size;
    while (callables_.size() > keptCallables) {
      const SharedCallable callable = std::move(callables_.back());
      callables_.pop_back();
    }
  }
}

NotedCalls* NotedCalls::ofThread(const default_log_manager& _manager) {
  NotedCalls* noted = latestNoted();
  while (noted != nullptr && &noted->manager != &_manager)
    noted = noted->outer;
  return noted;
}

}  // namespace detail

using detail::CallableKind;
using detail::NotedCalls;
using detail::SetUpCalls;

namespace {

/// Notes the call, made by the function on a list of calls, where the thread has a set_up_change, else applies it.
template <typename MakeCall>
void setUp(default_log_manager& _manager, MakeCall _makeCall) {
  if (NotedCalls* const noted = NotedCalls::ofThread(_manager)) {
    _makeCall(noted->calls);
    return;
  }
  SetUpCalls calls;
  _makeCall(calls);
  _manager.apply(calls);
}

}  // namespace

void add_appender(default_log_manager& _manager, const std::string& _logs, const appender& _appender,
                  const std::string& _name, int _index) {
  if (!_appender) return;
  const detail::SharedCallable callable = detail::makeAppender(_appender, _name, _index);
  setUp(_manager, [&](SetUpCalls& _calls) { _calls.connect(_logs, callable); });
}

void add_modifier(default_log_manager& _manager, const std::string& _logs, const modifier& _modifier,
                  const std::string& _name, int _index) {
  if (!_modifier) return;
  const detail::SharedCallable callable = detail::makeModifier(_modifier, _name, _index);
  setUp(_manager, [&](SetUpCalls& _calls) { _calls.connect(_logs, callable); });
}

void del_appender(default_log_manager& _manager, const std::string& _logs, const std::string& _name) {
  setUp(_manager, [&](SetUpCalls& _calls) { _calls.disconnect(_logs, CallableKind::appender, _name); });
}

void del_modifier(default_log_manager& _manager, const std::string& _logs, const std::string& _name) {
  setUp(_manager, [&](SetUpCalls& _calls) { _calls.disconnect(_logs, CallableKind::modifier, _name); });
}

void enable_logs(default_log_manager& _manager, const std::string& _logs, unsigned int _level) {
  setUp(_manager, [&](SetUpCalls& _calls) { _calls.enable(_logs, _level != level_off); });
}

void flush_log_cache() {
  default_log_manager& manager = get_default_log_manager();
  NotedCalls* const noted = NotedCalls::ofThread(manager);
  if (noted != nullptr && !noted->calls.isEmpty()) {
    // What was kept is to go through what these calls connect.
    noted->isFlushDue = true;
  } else {
    manager.earlyMessages().flush();
  }
}

set_up_change::set_up_change(default_log_manager& _manager) : noted_(NotedCalls::ofThread(_manager)) {
  if (noted_ == nullptr) {
    noted_ = new NotedCalls{_manager, this, detail::latestNoted(), {}, false};
    detail::latestNoted() = noted_;
  }
  keep();
}

set_up_change::~set_up_change() {
  if (noted_->owner == this) {
    // First, as the callables that go with it may have destructors that make set-up calls.
    detail::latestNoted() = noted_->outer;
    delete noted_;
    return;
  }
  noted_->calls.shrink(kept_);
  noted_->isFlushDue = noted_->isFlushDue && keepsFlush_;
}

void set_up_change::apply() {
  if (noted_->owner != this) {
    keep();
    return;
  }
  SetUpCalls calls = std::exchange(noted_->calls, SetUpCalls());
  try {
    noted_->manager.apply(calls);
  } catch (...) {
    noted_->calls = std::move(calls);
    throw;
  }
  if (std::exchange(noted_->isFlushDue, false)) noted_->manager.earlyMessages().flush();
}

// What is noted by now stays so, whatever becomes of this change.
void set_up_change::keep() {
  kept_ = noted_->calls.size();
  keepsFlush_ = noted_->isFlushDue;
}

}  // namespace boost::logging
