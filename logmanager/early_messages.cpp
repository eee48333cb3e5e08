// SPDX-License-Identifier: MIT
#include "logmanager/early_messages.h"

#include <chrono>
#include <new>
#include <string>
#include <utility>

#include "logmanager/appenders/failure_report.h"
#include "logmanager/callable_set.h"
#include "logmanager/context.h"
#include "logmanager/threads/process_lock.h"
#include "logmanager/threads/thread_state.h"
#include "platform/clock.h"

namespace boost::logging::detail {
namespace {

/// In how many rounds of a flush other threads go on without waiting.
constexpr int openRounds = 2;
/// A flush that delivers nothing for so long may itself wait for a thread that logs.
constexpr std::chrono::seconds standstill{2};

void deliver(const Log& _log, std::int64_t _time, std::string_view _text) noexcept {
  if (!_log.enabled.load(std::memory_order_relaxed)) return;
  try {
    Context& context = enterContext(_log);
    if (isStillOn(context)) deliverThrough(*context.thread, context.callables, _log.name, _text, context.line, _time);
    leaveContext(context);
  } catch (...) {
    reportException("log cache", _log.name);
  }
}

std::string droppedLine(std::uint64_t _count) {
  return std::to_string(_count) + (_count == 1 ? " message was" : " messages were") +
         " dropped before the log cache was flushed";
}

}  // namespace

bool EarlyMessages::isFlushing() const {
  const Phase phase = phase_.load(std::memory_order_relaxed);
  return phase == Phase::flushing || phase == Phase::lastRound;
}

bool EarlyMessages::mustWait(std::string_view _message) const {
  return phase_.load(std::memory_order_relaxed) == Phase::lastRound ||
         (isFlushing() && !cache_.hasRoomFor(_message.size()));
}

bool EarlyMessages::keepLocked(const Log& _log, std::string_view _message) {
  // What callables log goes through them at once: the flush may wait for it.
  if (threadState().depth > 0) return false;
  const std::int64_t now = platform::wallClockMilliseconds();
  std::unique_lock<std::mutex> lock(lock_);
  if (mustWait(_message)) {
    waitWhileFlushAdvances(lock);
    return false;
  }
  if (phase_.load(std::memory_order_relaxed) == Phase::done) return false;
  cache_.add(_log, now, _message);
  return true;
}

// A callable may wait for a thread that logs; that thread must not wait for the flush for ever.
void EarlyMessages::waitWhileFlushAdvances(std::unique_lock<std::mutex>& _lock) {
  std::uint64_t before = 0;
  do {
    before = delivered_.load(std::memory_order_relaxed);
    if (done_.wait_for(_lock, standstill, [this] { return !isFlushing(); })) return;
  } while (delivered_.load(std::memory_order_relaxed) != before);
}

void EarlyMessages::flush() {
  std::unique_lock<std::mutex> lock(lock_);
  if (isFlushing()) {
    if (threadState().depth == 0) done_.wait(lock, [this] { return !isFlushing(); });
    return;
  }
  if (phase_.load(std::memory_order_relaxed) == Phase::done) return;
  flusher_ = &threadState();
  phase_.store(Phase::flushing, std::memory_order_relaxed);
  try {
    deliverRounds(lock);
  } catch (...) {
    // No memory for the line about dropped messages, or for another cache.
    reportException("log cache", std::string());
    if (!lock.owns_lock()) lock.lock();
  }
  phase_.store(Phase::done, std::memory_order_release);
  flusher_ = nullptr;
  done_.notify_all();
}

void EarlyMessages::deliverRounds(std::unique_lock<std::mutex>& _lock) {
  for (int round = 0; !cache_.isEmpty() || cache_.dropped() > 0; ++round) {
    if (round == openRounds) phase_.store(Phase::lastRound, std::memory_order_relaxed);
    const MessageCache kept = std::exchange(cache_, MessageCache());
    _lock.unlock();
    deliverAll(kept);
    _lock.lock();
  }
}

// The line about dropped messages goes, with its time, before the first message that a log takes which is on; where
// there is none, to the log of the latest one that was dropped. When a callable forks, the parent delivers what is
// left.
void EarlyMessages::deliverAll(const MessageCache& _cache) {
  const std::uint32_t process = processStamp();
  bool isToReport = _cache.dropped() > 0;
  _cache.forEach([&](const Log& _log, std::int64_t _time, std::string_view _text) {
    if (isToReport && _log.enabled.load(std::memory_order_relaxed)) {
      deliver(_log, _time, droppedLine(_cache.dropped()));
      isToReport = false;
    }
    if (processStamp() == process) deliver(_log, _time, _text);
    delivered_.fetch_add(1, std::memory_order_relaxed);
  });
  if (!isToReport || processStamp() != process) return;
  deliver(*_cache.latestDroppedLog(), _cache.latestDroppedTime(), droppedLine(_cache.dropped()));
}

void EarlyMessages::restartInChild() {
  cache_.clear();
  // Those who wait do not exist here, so it is not destroyed, which would wait for them.
  new (&done_) std::condition_variable;
  if (isFlushing() && flusher_ != &threadState()) {
    phase_.store(Phase::done, std::memory_order_release);
    flusher_ = nullptr;
  }
  lock_.unlock();
}

}  // namespace boost::logging::detail
