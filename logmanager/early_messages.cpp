// SPDX-License-Identifier: MIT
#include "logmanager/early_messages.h"

#include <cstdint>
#include <utility>

#include "logmanager/appenders/exception_report.h"
#include "logmanager/context.h"
#include "logmanager/dispatch.h"
#include "logmanager/threads/thread_state.h"
#include "platform/clock.h"

namespace boost::logging::detail {
namespace {

void deliver(const Log& _log, std::int64_t _time, std::string_view _text) noexcept {
  if (!_log.enabled.load(std::memory_order_relaxed)) return;
  try {
    Context& context = enterContext(_log);
    passThrough(*context.thread, context.callables, _log.name, _text, context.line, _time);
    leaveContext(context);
  } catch (...) {
    reportException("log cache", _log.name);
  }
}

std::string droppedLine(std::uint64_t _count) {
  return std::to_string(_count) + (_count == 1 ? " message was" : " messages were") +
         " dropped before the log cache was flushed";
}

/// The line about dropped messages goes, with its time, before the first message that a log takes which is on; where
/// there is none, to the log of the latest one that was dropped.
void deliverAll(const MessageCache& _cache) {
  bool isToTell = _cache.dropped() > 0;
  _cache.forEach([&](const Log& _log, std::int64_t _time, std::string_view _text) {
    if (isToTell && _log.enabled.load(std::memory_order_relaxed)) {
      deliver(_log, _time, droppedLine(_cache.dropped()));
      isToTell = false;
    }
    deliver(_log, _time, _text);
  });
  if (isToTell) deliver(*_cache.latestDroppedLog(), _cache.latestDroppedTime(), droppedLine(_cache.dropped()));
}

}  // namespace

bool EarlyMessages::keepLocked(const Log& _log, std::string_view _message) {
  const std::int64_t now = platform::wallClockMilliseconds();
  const std::lock_guard<std::mutex> lock(lock_);
  // What the callables themselves log during the flush goes through them at once.
  if (!isKeeping_.load(std::memory_order_relaxed) || flusher_ == &threadState()) return false;
  cache_.add(_log, now, _message);
  return true;
}

void EarlyMessages::flush() {
  std::unique_lock<std::mutex> lock(lock_);
  if (flusher_ != nullptr) {
    if (threadState().depth == 0) done_.wait(lock, [this] { return flusher_ == nullptr; });
    return;
  }
  if (!isKeeping_.load(std::memory_order_relaxed)) return;
  flusher_ = &threadState();
  try {
    while (!cache_.isEmpty() || cache_.dropped() > 0) {
      const MessageCache kept = std::exchange(cache_, MessageCache());
      lock.unlock();
      deliverAll(kept);
      lock.lock();
    }
  } catch (...) {
    // No memory for the line about dropped messages, or for another cache.
    reportException("log cache", std::string());
    if (!lock.owns_lock()) lock.lock();
  }
  isKeeping_.store(false, std::memory_order_release);
  flusher_ = nullptr;
  done_.notify_all();
}

}  // namespace boost::logging::detail
