// SPDX-License-Identifier: MIT
#include "logmanager/set_up_calls.h"

#include <algorithm>
#include <utility>

#include "logmanager/default_log_manager.h"

namespace boost::logging {
namespace detail {
namespace {

/// Of the calling thread, those of the manager that it turned to last.
NotedCalls*& latestNoted() {
  static thread_local constinit NotedCalls* noted = nullptr;
  return noted;
}

}  // namespace

// A run of "*" means no more than one, so that patterns which select the same are the same.
void SetUpCalls::note(Action _action, std::string_view _logs, CallableKind _kind, const SharedCallable& _callable,
                      std::string_view _name) {
  const std::size_t begin = texts_.size();
  texts_ += _logs;
  if (_logs.find("**") != std::string_view::npos) {
    const auto areStars = [](char _left, char _right) { return _left == '*' && _right == '*'; };
    texts_.erase(std::unique(texts_.begin() + static_cast<std::ptrdiff_t>(begin), texts_.end(), areStars),
                 texts_.end());
  }
  const std::size_t patternSize = texts_.size() - begin;
  texts_ += _name;
  calls_.push_back(Call{_action, _kind, _callable, begin, patternSize, _name.size()});
}

void SetUpCalls::shrink(std::size_t _size) noexcept {
  while (calls_.size() > _size) {
    const SharedCallable callable = std::move(calls_.back().callable);
    texts_.resize(calls_.back().begin);
    calls_.pop_back();
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
