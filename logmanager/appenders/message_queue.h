// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <boost/thread/mutex.hpp>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "logmanager/appenders/batch.h"
#include "logmanager/appenders/lane.h"
#include "platform/tick_clock.h"

namespace boost::logging::detail {

/// The messages that callers leave for one writer thread: many lanes, one consumer.
///
/// Order. Every message takes the next number of one counter just before it is published. If a thread logs B because it
/// has seen that A was logged, B takes its number after A was published. The consumer reads the counter first, then
/// looks at all lanes, and takes only numbers below the one that it read. So when it takes B, the counter had changed
/// for B before it looked at the lanes, and A had been published before that: it finds A, and puts it first because its
/// number is smaller.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): who writes a part does not share cache lines with others
class MessageQueue {
 public:
  /// One call of the wrapped appender gets at most this many bytes, plus one line.
  static constexpr std::size_t batchSize = std::size_t{256} * 1024;
  static constexpr std::size_t usualLimit = std::size_t{64} * 1024 * 1024;

  explicit MessageQueue(std::size_t _limit = usualLimit);
  ~MessageQueue();
  MessageQueue(const MessageQueue&) = delete;
  MessageQueue& operator=(const MessageQueue&) = delete;

  /// Unlike an address, never used again for another queue.
  std::uint64_t id() const { return id_; }

  // For producers, on any thread.

  /// A lane for the caller, who gives it back by Lane::release. May throw std::bad_alloc.
  Lane* addLane();

  /// Publishes the message whose text of that size is in the lane's room.
  /// @param _plan null for a finished line; the plan and the name must live as long as the process.
  void publish(Lane& _lane, const LinePlan* _plan, const std::string* _logName, std::size_t _size) {
    const std::uint64_t ticks = platform::ticks();
    _lane.publish(stamps_.fetch_add(1, std::memory_order_seq_cst), ticks, _plan, _logName, _size);
  }

  /// Leaves a finished line, or counts it as dropped at the limit of held bytes or when memory runs out.
  void push(std::string_view _line) noexcept;

  /// Whether the consumer wants to be called. Ask after leaving a message.
  bool needsAttention() const { return needsAttention_.load(std::memory_order_seq_cst); }

  // For the consumer, one thread at a time.

  /// Makes lines of the messages left before the call, in order, up to the size of a batch. May throw std::bad_alloc.
  /// @param _isLast whether this is the end, when dropped messages are reported in any case.
  void collect(Batch& _batch, bool _isLast);

  /// Marks what was collected as delivered.
  void consume();

  /// Lets what was collected and not consumed be collected again.
  void rewind();

  /// Callers call from now on, or no more.
  void callForAttention(bool _calls) { needsAttention_.store(_calls, std::memory_order_seq_cst); }

  /// Whether every numbered message was collected. Ask after callForAttention: a message without a number yet will see
  /// the call.
  bool isDrained() const { return stamps_.load(std::memory_order_seq_cst) == collected_; }

  /// How many messages were dropped so far, and how many bytes wait. For people, on any thread.
  std::uint64_t droppedCount() const { return toldDropped_ + dropped_; }
  std::size_t heldBytes() const { return held_.bytes(); }

  // Around a fork; the child begins empty.
  void lockForFork() { commonLock_.lock(); }
  void unlockAfterFork() { commonLock_.unlock(); }
  void forgetAllInChild();

 private:
  struct Head {
    Lane* lane;
    const Record* record;
  };

  void findHeads();
  void merge(std::uint64_t _before, Batch& _batch);
  std::size_t firstHead(std::uint64_t& _second) const;
  bool takeRun(Head& _head, std::uint64_t _limit, Batch& _batch);
  void tellDropped(Batch& _batch);

  const std::uint64_t id_;
  HeldBytes held_;

  /// Written by every message.
  alignas(64) std::atomic<std::uint64_t> stamps_{0};
  std::atomic<bool> needsAttention_{true};

  alignas(64) std::atomic<Lane*> lanes_{nullptr};
  std::atomic<std::uint64_t> dropped_{0};
  std::atomic<std::uint64_t> toldDropped_{0};
  /// The lane of finished lines, which any thread may leave.
  boost::mutex commonLock_;
  Lane* common_;

  // The consumer's.
  std::vector<Head> heads_;
  std::uint64_t collected_ = 0;
  std::uint64_t collectedNow_ = 0;
  std::uint64_t droppedNow_ = 0;
  LineMaker lineMaker_;
};

}  // namespace boost::logging::detail
