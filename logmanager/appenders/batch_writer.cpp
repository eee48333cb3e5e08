// SPDX-License-Identifier: MIT
#include "logmanager/appenders/batch_writer.h"

#include <algorithm>
#include <boost/chrono/duration.hpp>
#include <boost/thread/thread.hpp>
#include <new>
#include <utility>
#include <vector>

#include "logmanager/appenders/failure_report.h"
#include "logmanager/threads/process_lock.h"
#include "platform/all_signals_blocked.h"

namespace boost::logging::detail {
namespace {

using boost::chrono::microseconds;
using boost::chrono::milliseconds;
using std::chrono::steady_clock;

/// How long the thread sleeps when more is to be expected: callers then need not wake it, which is what costs them
/// most.
constexpr int shortSleepUs = 1250;

/// Of the messages that the wrapped appender logs itself while the last ones are delivered.
constexpr int mostOwnRounds = 8;
/// For what is left when the wrapped appender has called exit().
constexpr boost::chrono::seconds longestDelivery{5};

void sleepUninterrupted(microseconds _duration) {
  const boost::this_thread::disable_interruption uninterrupted;
  boost::this_thread::sleep_for(_duration);
}

/// Keeps for ever, where a leak checker finds it, what cannot be destroyed.
void abandon(std::unique_ptr<boost::mutex> _lock) {
  static auto* const abandoned = new std::vector<std::unique_ptr<boost::mutex>>;
  abandoned->push_back(std::move(_lock));
}

}  // namespace

BatchWriter::BatchWriter(const appender& _wrapped, int _sleepMs, const std::string& _file)
    : noted_(_file, queue_),
      wrapped_(_wrapped),
      sleepMs_(std::max(_sleepMs, 0)),
      lock_(new boost::mutex),
      delivery_(new BatchDelivery(queue_, wrapped_)) {}

bool BatchWriter::attend() {
  Lock lock(*lock_);
  if (writer_ == Writer::none) return true;
  if (writer_ == Writer::ended) {
    deliverRest(lock);
    return false;
  }
  noteMore();
  if (!std::exchange(isWaiting_, false)) return false;
  queue_.callForAttention(false);
  wake_.notify_one();
  return false;
}

bool BatchWriter::noteThread() {
  Lock lock(*lock_);
  if (writer_ != Writer::none) return false;
  // The child of a fork has none.
  if (delivery_ == nullptr) delivery_.reset(new (std::nothrow) BatchDelivery(queue_, wrapped_));
  if (delivery_ == nullptr) {
    goOnWithoutThread(lock);
    return false;
  }
  writer_ = Writer::running;
  queue_.callForAttention(false);
  return true;
}

void BatchWriter::noteNoThread() {
  Lock lock(*lock_);
  if (writer_ != Writer::ended) goOnWithoutThread(lock);
}

void BatchWriter::goOnWithoutThread(Lock& _lock) {
  writer_ = Writer::ended;
  queue_.callForAttention(true);
  deliverRest(_lock);
}

void BatchWriter::run() {
  Lock lock(*lock_);
  threadId_ = boost::this_thread::get_id();
  delivery_->watch();
  while (!isStopped_.load(std::memory_order_relaxed)) {
    const BatchDelivery::Result result = deliverBatch(lock, *delivery_, false);
    if (result == BatchDelivery::Result::full) continue;
    if (result != BatchDelivery::Result::nothing) gaps_.noteArrival(steady_clock::now());
    pause(lock);
  }
  queue_.callForAttention(true);
  deliverAll(lock, *delivery_);
  writer_ = Writer::ended;
  ended_.notify_all();
  const bool isUnused = isUnused_;
  lock.unlock();
  if (isUnused) wrapped_.clear();
  hasEnded_.store(true, std::memory_order_release);
}

void BatchWriter::stop() {
  {
    const Lock lock(*lock_);
    isUnused_ = true;
    isStopped_.store(true, std::memory_order_relaxed);
    if (writer_ != Writer::running) return;
    wake_.notify_one();
  }
  sleepUninterrupted(microseconds(std::int64_t{sleepMs_} * 1500));
}

void BatchWriter::finish(steady_clock::time_point _deadline, const std::function<bool()>& _threadIsGone) {
  const boost::this_thread::disable_interruption uninterrupted;
  if (!hasEnded() && _threadIsGone()) {
    takeOver();
    return;
  }
  Lock lock(*lock_, boost::defer_lock);
  while (!lock.try_lock()) {
    if (steady_clock::now() >= _deadline) return;
    boost::this_thread::sleep_for(milliseconds(1));
  }
  isStopped_.store(true, std::memory_order_relaxed);
  if (writer_ == Writer::running && threadId_ == boost::this_thread::get_id()) {
    finishOnThread(lock);
    return;
  }
  wake_.notify_one();
  while (writer_ == Writer::running && steady_clock::now() < _deadline)
    ended_.wait_for(lock, milliseconds(10));
  if (writer_ == Writer::ended) deliverRest(lock);
}

// Nobody else is there any more: the thread, which may have held the lock, was ended with all others.
void BatchWriter::takeOver() {
  freeLocksOfEndedThreads();
  abandon(std::exchange(lock_, std::make_unique<boost::mutex>()));
  Lock lock(*lock_);
  isStopped_.store(true, std::memory_order_relaxed);
  writer_ = Writer::ended;
  isDelivering_ = false;
  queue_.callForAttention(true);
  if (delivery_->settle()) deliverRest(lock);
}

// exit() was called inside the wrapped appender, which does not get its batch again.
void BatchWriter::finishOnThread(Lock& _lock) {
  writer_ = Writer::ended;
  isDelivering_ = false;
  exiting_ = boost::this_thread::get_id();
  queue_.callForAttention(true);
  deliverRest(_lock);
}

// The wrapped appender may hold a lock around its call of exit() that it takes in every call.
void BatchWriter::deliverOnAnotherThread(Lock& _lock) {
  _lock.unlock();
  const boost::this_thread::disable_interruption uninterrupted;
  try {
    const platform::AllSignalsBlocked blocked;
    boost::thread thread([this] {
      Lock lock(*lock_);
      deliverRest(lock);
    });
    thread.try_join_for(longestDelivery);
    thread.detach();
  } catch (const boost::thread_resource_error&) {
    // What is left is lost.
  }
}

void BatchWriter::lockForFork() {
  lock_->lock();
  queue_.lockForFork();
}

void BatchWriter::unlockAfterFork() {
  queue_.unlockAfterFork();
  lock_->unlock();
}

// A thread of the parent does not exist here; what it was doing stays as it is. The thread that forked does, and may be
// inside the wrapped appender. Nothing here needs memory: fork() has no way to say that it is lacking.
bool BatchWriter::restartInChild() {
  queue_.forgetAllInChild();
  const bool isHere = isDelivering_ && deliverer_ == boost::this_thread::get_id();
  const bool goesOn = isHere && writer_ == Writer::running;
  if (writer_ == Writer::running && !goesOn) writer_ = Writer::none;
  queue_.callForAttention(true);
  isWaiting_ = false;
  isDelivering_ = isHere;
  if (!goesOn) BatchDelivery::abandon(std::move(delivery_));
  // Those who wait do not exist here, so these are not destroyed, which would wait for them.
  new (&wake_) boost::condition_variable;
  new (&ended_) boost::condition_variable;
  lock_->unlock();
  return goesOn;
}

BatchDelivery::Result BatchWriter::deliverBatch(Lock& _lock, BatchDelivery& _delivery, bool _isLast) {
  isDelivering_ = true;
  deliverer_ = boost::this_thread::get_id();
  _lock.unlock();
  const BatchDelivery::Result result = _delivery.deliver(_isLast);
  _lock.lock();
  isDelivering_ = false;
  return result;
}

// A caller that leaves a message while this thread delivers finds it doing so, and goes. What the wrapped appender logs
// itself, here, is delivered only so many times.
void BatchWriter::deliverAll(Lock& _lock, BatchDelivery& _delivery) {
  int ownRounds = 0;
  do {
    hasMore_ = false;
    while (deliverBatch(_lock, _delivery, true) != BatchDelivery::Result::nothing) {
      if (!std::exchange(hasOwnMore_, false) || ++ownRounds < mostOwnRounds) continue;
      if (ownRounds == mostOwnRounds) reportEndlessLogging("ts_appender");
      break;
    }
  } while (hasMore_);
}

// Notes that a message was left with whoever delivers: with this thread itself while it is inside the wrapped appender.
void BatchWriter::noteMore() {
  const bool isOwn = isDelivering_ && deliverer_ == boost::this_thread::get_id();
  (isOwn ? hasOwnMore_ : hasMore_) = true;
}

// What comes while another thread delivers, or while the wrapped appender itself logs, is delivered by that thread.
void BatchWriter::deliverRest(Lock& _lock) {
  noteMore();
  if (isDelivering_) return;
  if (exiting_ == boost::this_thread::get_id()) {
    deliverOnAnotherThread(_lock);
    return;
  }
  BatchDelivery delivery(queue_, wrapped_);
  deliverAll(_lock, delivery);
}

void BatchWriter::pause(Lock& _lock) {
  if (sleepMs_ > 0) {
    wake_.wait_for(_lock, milliseconds(sleepMs_), [this] { return isStopped_.load(std::memory_order_relaxed); });
  } else if (gaps_.isOneExpectedWithin(std::chrono::microseconds(2 * shortSleepUs), steady_clock::now())) {
    sleepShortly(_lock);
    return;
  }
  waitForMessage(_lock);
}

void BatchWriter::sleepShortly(Lock& _lock) {
  _lock.unlock();
  boost::this_thread::sleep_for(microseconds(shortSleepUs));
  _lock.lock();
}

void BatchWriter::waitForMessage(Lock& _lock) {
  isWaiting_ = true;
  queue_.callForAttention(true);
  if (queue_.isDrained()) {
    wake_.wait(_lock, [this] { return !isWaiting_ || isStopped_.load(std::memory_order_relaxed); });
    if (!isWaiting_) return;
  }
  isWaiting_ = false;
  queue_.callForAttention(false);
  // A message that has its number is published in an instant, or when its thread gets a processor again.
  if (!isStopped_.load(std::memory_order_relaxed)) sleepShortly(_lock);
}

}  // namespace boost::logging::detail
