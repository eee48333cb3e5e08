// SPDX-License-Identifier: MIT
#include "logmanager/appenders/message_queue.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "logmanager/appenders/file_notes.h"

namespace boost::logging::detail {
namespace {

constexpr std::uint64_t none = ~std::uint64_t{0};

std::uint64_t nextId() {
  static constinit std::atomic<std::uint64_t> latest{0};
  return ++latest;
}

}  // namespace

MessageQueue::MessageQueue(std::size_t _limit) : id_(nextId()), held_(_limit), common_(nullptr) { common_ = addLane(); }

MessageQueue::~MessageQueue() {
  common_->release();
  for (Lane* lane = lanes_.load(std::memory_order_acquire); lane != nullptr;)
    std::exchange(lane, lane->next)->release();
}

Lane* MessageQueue::addLane() {
  Lane* const lane = Lane::create(held_);
  lane->next = lanes_.load(std::memory_order_relaxed);
  while (!lanes_.compare_exchange_weak(lane->next, lane, std::memory_order_seq_cst, std::memory_order_relaxed)) {
  }
  return lane;
}

void MessageQueue::push(std::string_view _line) noexcept {
  try {
    const boost::unique_lock<boost::mutex> lock(commonLock_);
    if (common_->makeRoom(_line.size())) {
      std::memcpy(common_->textBegin(), _line.data(), _line.size());
      publish(*common_, nullptr, nullptr, _line.size());
      common_->leaveLongRing();
      return;
    }
  } catch (...) {
    // Dropped, as where the limit is reached.
  }
  if (dropped_.fetch_add(1, std::memory_order_relaxed) == 0) noteDropping();
}

void MessageQueue::collect(Batch& _batch, bool _isLast) {
  lineMaker_.noteNow();
  const std::uint64_t before = stamps_.load(std::memory_order_seq_cst);
  if (dropped_.load(std::memory_order_relaxed) > 0 && (_isLast || held_.isHalfEmpty())) tellDropped(_batch);
  findHeads();
  merge(before, _batch);
}

void MessageQueue::consume() {
  for (Lane* lane = lanes_.load(std::memory_order_acquire); lane != nullptr; lane = lane->next)
    lane->consume();
  collectedNow_ = 0;
  droppedNow_ = 0;
}

void MessageQueue::rewind() {
  for (Lane* lane = lanes_.load(std::memory_order_acquire); lane != nullptr; lane = lane->next)
    lane->rewind();
  collected_ -= std::exchange(collectedNow_, 0);
  toldDropped_.fetch_sub(droppedNow_, std::memory_order_relaxed);
  dropped_.fetch_add(std::exchange(droppedNow_, 0), std::memory_order_relaxed);
}

void MessageQueue::forgetAllInChild() {
  for (Lane* lane = lanes_.load(std::memory_order_acquire); lane != nullptr; lane = lane->next)
    lane->forgetAll();
  held_.clear();
  collected_ = stamps_.load(std::memory_order_relaxed);
  collectedNow_ = 0;
  droppedNow_ = 0;
  dropped_.store(0, std::memory_order_relaxed);
  toldDropped_.store(0, std::memory_order_relaxed);
  commonLock_.unlock();
}

void MessageQueue::findHeads() {
  heads_.clear();
  for (Lane* lane = lanes_.load(std::memory_order_acquire); lane != nullptr; lane = lane->next) {
    if (const Record* const record = lane->peek()) heads_.push_back(Head{lane, record});
  }
}

/// Takes the records before the number, the smallest number first, as long as the batch is not full.
void MessageQueue::merge(std::uint64_t _before, Batch& _batch) {
  while (!heads_.empty() && _batch.text.size() < batchSize) {
    std::uint64_t second = none;
    const std::size_t first = firstHead(second);
    if (heads_[first].record->stamp >= _before) return;
    if (!takeRun(heads_[first], std::min(second, _before), _batch)) {
      heads_[first] = heads_.back();
      heads_.pop_back();
    }
  }
}

/// @param _second receives the number of the next one.
std::size_t MessageQueue::firstHead(std::uint64_t& _second) const {
  std::size_t first = 0;
  for (std::size_t i = 1; i < heads_.size(); ++i) {
    if (heads_[i].record->stamp < heads_[first].record->stamp) {
      _second = heads_[first].record->stamp;
      first = i;
    } else {
      _second = std::min(_second, heads_[i].record->stamp);
    }
  }
  return first;
}

/// Takes records of one lane up to the limit; false when the lane has no more.
bool MessageQueue::takeRun(Head& _head, std::uint64_t _limit, Batch& _batch) {
  do {
    lineMaker_.append(*_head.record, _batch);
    ++collected_;
    ++collectedNow_;
    _head.lane->pass(*_head.record);
    _head.record = _head.lane->peek();
    if (_head.record == nullptr) return false;
  } while (_head.record->stamp < _limit && _batch.text.size() < batchSize);
  return true;
}

void MessageQueue::tellDropped(Batch& _batch) {
  const std::uint64_t count = dropped_.exchange(0, std::memory_order_relaxed);
  toldDropped_.fetch_add(count, std::memory_order_relaxed);
  droppedNow_ += count;
  _batch.text += std::to_string(count) + (count == 1 ? " message was" : " messages were") +
                 " dropped: too much was waiting for this appender\n";
  _batch.ends.push_back(_batch.text.size());
  noteDropping();
}

}  // namespace boost::logging::detail
