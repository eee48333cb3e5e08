// SPDX-License-Identifier: MIT
#include "logmanager/appenders/batch_writer.h"

#include <algorithm>
#include <boost/chrono/duration.hpp>
#include <chrono>
#include <memory>
#include <utility>
#include <vector>

#include "logmanager/appenders/batch_writers.h"
#include "platform/append_file.h"

namespace boost::logging::detail {
namespace {

using boost::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr int START_DELAY_MS = 100;
/// How long the thread goes on looking for text by itself, when there is no interval, before it waits to be woken:
/// waking it is what costs callers most.
constexpr int POLL_MS = 5;
/// How often a caller tries to get the lock, which is held for some instructions only, before it lets itself be
/// suspended.
constexpr int LOCK_TRIES = 100;
constexpr std::size_t LARGEST_KEPT_SIZE = std::size_t{8} * 1024 * 1024;

/// Keeps for ever, where a leak checker finds it, what cannot be destroyed.
template <typename T>
void abandon(std::unique_ptr<T> _object) {
  static auto* const abandoned = new std::vector<std::unique_ptr<T>>;
  if (_object) abandoned->push_back(std::move(_object));
}

}  // namespace

BatchWriter::BatchWriter(const appender& _wrapped, int _sleepMs)
    : wrapped_(_wrapped),
      sleepMs_(std::max(_sleepMs, 0)),
      batch_(new std::string),
      wake_(new boost::condition_variable),
      ended_(new boost::condition_variable) {}

// The thread, if there is one, is the one that destroys the object, or has ended.
BatchWriter::~BatchWriter() {
  if (thread_ && thread_->joinable()) thread_->detach();
}

void BatchWriter::append(const std::string& _text) {
  Lock lock = lockBriefly();
  cache_ += _text;
  if (!hasText_.load(std::memory_order_relaxed)) hasText_.store(true, std::memory_order_release);
  const bool isToWake = isWaiting_;
  if (isToWake) isWaiting_ = false;
  const Writer writer = writer_;
  if (writer == Writer::ended) deliverRest(lock);
  lock.unlock();
  if (isToWake) wake_->notify_one();
  if (writer == Writer::none) startAndSleep();
}

void BatchWriter::stop() {
  {
    const Lock lock(lock_);
    isStopped_.store(true, std::memory_order_relaxed);
    if (writer_ != Writer::running) return;
    wake_->notify_one();
  }
  const boost::this_thread::disable_interruption uninterrupted;
  boost::this_thread::sleep_for(milliseconds(sleepMs_) * 3 / 2);
}

void BatchWriter::finish(steady_clock::time_point _deadline) {
  const boost::this_thread::disable_interruption uninterrupted;
  Lock lock(lock_, boost::defer_lock);
  if (!lockInTime(lock, _deadline)) return;
  isStopped_.store(true, std::memory_order_relaxed);
  if (!thread_) {
    // It could not be started, or was about to be.
    writer_ = Writer::ended;
    deliverRest(lock);
    return;
  }
  if (thread_->get_id() == boost::this_thread::get_id()) return;
  wake_->notify_one();
  while (writer_ == Writer::running && steady_clock::now() < _deadline) {
    ended_->wait_for(lock, milliseconds(10));
    if (writer_ == Writer::running) endIfThreadIsGone(lock);
  }
  if (writer_ == Writer::ended) deliverRest(lock);
  lock.unlock();
  // The code that the thread runs may be about to go: let it leave it, which takes an instant, or never happens while
  // the system holds up the ends of threads.
  if (thread_->joinable()) thread_->try_join_for(milliseconds(100));
}

void BatchWriter::restartInChild() {
  cache_.clear();
  hasText_.store(false, std::memory_order_relaxed);
  if (writer_ == Writer::running) writer_ = Writer::none;
  isWaiting_ = false;
  isDelivering_ = false;
  abandon(std::move(batch_));
  abandon(std::move(wake_));
  abandon(std::move(ended_));
  abandon(std::move(thread_));
  batch_.reset(new std::string);
  wake_.reset(new boost::condition_variable);
  ended_.reset(new boost::condition_variable);
  lock_.unlock();
}

BatchWriter::Lock BatchWriter::lockBriefly() {
  Lock lock(lock_, boost::try_to_lock);
  for (int tries = 1; !lock && tries < LOCK_TRIES; ++tries)
    lock.try_lock();
  if (!lock) lock.lock();
  return lock;
}

// A thread that no longer exists may have held the lock when it was ended.
bool BatchWriter::lockInTime(Lock& _lock, steady_clock::time_point _deadline) {
  while (!_lock.try_lock()) {
    if (steady_clock::now() >= _deadline) return false;
    boost::this_thread::sleep_for(milliseconds(1));
  }
  return true;
}

void BatchWriter::startAndSleep() {
  if (!startThread()) return;
  const boost::this_thread::disable_interruption uninterrupted;
  boost::this_thread::sleep_for(milliseconds(START_DELAY_MS));
}

bool BatchWriter::startThread() {
  std::shared_ptr<BatchWriter> self = shared_from_this();
  const bool isRegistered = batchWriters().add(self);
  Lock lock(lock_);
  if (writer_ != Writer::none) return false;
  if (isRegistered) {
    try {
      // The thread's function outlives the run of the thread, since this object holds the thread: it must not go on
      // holding this object.
      thread_.reset(new boost::thread([self]() mutable { std::exchange(self, nullptr)->run(); }));
      writer_ = Writer::running;
      return true;
    } catch (...) {
      // No thread to be had: the caller does its work.
    }
  }
  deliverRest(lock);
  return false;
}

void BatchWriter::run() {
  platform::watchAppends(isAppended_);
  Lock lock(lock_);
  while (true) {
    deliverBatch(lock, *batch_);
    if (isStopped_.load(std::memory_order_relaxed)) break;
    pause(lock);
  }
  while (!cache_.empty())
    deliverBatch(lock, *batch_);
  writer_ = Writer::ended;
  ended_->notify_all();
  lock.unlock();
  batchWriters().remove(this);
}

void BatchWriter::deliverBatch(Lock& _lock, std::string& _batch) {
  if (cache_.empty()) return;
  _batch.swap(cache_);
  hasText_.store(false, std::memory_order_relaxed);
  isAppended_.store(false, std::memory_order_relaxed);
  isDelivering_ = true;
  _lock.unlock();
  try {
    wrapped_(std::string(), _batch);
  } catch (...) {
    // The wrapped appender is on its own.
  }
  _batch.clear();
  if (_batch.capacity() > LARGEST_KEPT_SIZE) _batch.shrink_to_fit();
  _lock.lock();
  isDelivering_ = false;
}

// What comes while another thread delivers, or while the wrapped appender itself logs, is delivered by that thread.
void BatchWriter::deliverRest(Lock& _lock) {
  if (isDelivering_) return;
  std::string batch;
  while (!cache_.empty())
    deliverBatch(_lock, batch);
}

void BatchWriter::pause(Lock& _lock) {
  if (sleepMs_ > 0) {
    wake_->wait_for(_lock, milliseconds(sleepMs_), [this] { return isStopped_.load(std::memory_order_relaxed); });
  } else {
    _lock.unlock();
    pollForText();
    _lock.lock();
  }
  waitForText(_lock);
}

void BatchWriter::pollForText() {
  const steady_clock::time_point end = steady_clock::now() + std::chrono::milliseconds(POLL_MS);
  do {
    boost::this_thread::yield();
    if (hasText_.load(std::memory_order_acquire) || isStopped_.load(std::memory_order_relaxed)) return;
  } while (steady_clock::now() < end);
}

void BatchWriter::waitForText(Lock& _lock) {
  while (cache_.empty() && !isStopped_.load(std::memory_order_relaxed)) {
    isWaiting_ = true;
    wake_->wait(_lock);
  }
  isWaiting_ = false;
}

void BatchWriter::endIfThreadIsGone(Lock& _lock) {
  _lock.unlock();
  const bool isGone = !thread_->joinable() || thread_->try_join_for(milliseconds(0));
  _lock.lock();
  if (!isGone || writer_ != Writer::running) return;
  writer_ = Writer::ended;
  if (!std::exchange(isDelivering_, false)) return;
  // The thread was ended inside the wrapped appender. Called again, a foreign one might wait for ever for what the
  // thread has left behind.
  if (wrapped_.target<write_to_file>() != nullptr) {
    if (!isAppended_.load(std::memory_order_relaxed)) cache_.insert(0, *batch_);
  } else {
    cache_.clear();
  }
}

}  // namespace boost::logging::detail
