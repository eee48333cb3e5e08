// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>

#include "logmanager/appenders/batch.h"
#include "logmanager/appenders/held_bytes.h"

namespace boost::logging::detail {

/// A channel from one thread at a time to a writer thread: a ring of records, followed by further rings while the
/// writer lags. The producer builds the text of a message in the ring and never waits; the consumer reads what it has
/// published. Once everything is read, a lane keeps the ring in use and a spare one, which do not count as held.
///
/// Memory order: what the producer has written is visible to the consumer once `written` is (release, acquire); the
/// producer may reuse room once `consumed` is visible.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): the two sides do not share cache lines
class Lane {
 public:
  /// Shared by a producer's side and a consumer's side, each of which calls release() once.
  static Lane* create(HeldBytes& _held);
  void release();
  Lane(const Lane&) = delete;
  Lane& operator=(const Lane&) = delete;

  // For the producer.
  /// Makes room for a record whose text is at least that long. May throw std::bad_alloc.
  /// @return false at the limit of held bytes.
  bool makeRoom(std::size_t _textSize) {
    return static_cast<std::size_t>(roomEnd_ - room_) >= sizeof(Record) + _textSize || findRoom(0, _textSize);
  }

  /// The same for a text of which that many bytes are in the room already; they move along.
  /// @return false also for a text beyond the usual size of a ring, because rings do not double.
  bool makeMoreRoom(std::size_t _begun, std::size_t _textSize);

  /// Call it after publishing a long text: its ring is given back as soon as it is read.
  void leaveLongRing() noexcept;
  /// Where the text of the next record goes, and where its room ends. Call them after makeRoom.
  char* textBegin() const { return room_ + sizeof(Record); }
  char* textEnd() const { return roomEnd_; }

  /// Publishes the record whose text of that size is in the room.
  void publish(std::uint64_t _stamp, std::uint64_t _ticks, const LinePlan* _plan, const std::string* _logName,
               std::size_t _size);

  /// Whether the consumer has released its side, so that nobody reads any more.
  bool isAbandoned() const { return users_.load(std::memory_order_acquire) == 1; }

  // For the consumer.
  /// The next record that pass() has not passed; null when there is none.
  const Record* peek();
  void pass(const Record& _record);
  /// Gives the room of passed records back to the producer.
  void consume();
  /// Goes back to the first record that was not consumed.
  void rewind();
  /// In a forked child, which has no other thread: forgets everything that was published.
  void forgetAll();

  /// The consumer's list of lanes.
  Lane* next = nullptr;

 private:
  struct Ring;

  explicit Lane(HeldBytes& _held);
  ~Lane();
  bool findRoom(std::size_t _begun, std::size_t _textSize);
  bool wrap(std::size_t _needed);
  bool addRing(std::size_t _needed, const char* _begun, std::size_t _begunSize);
  void enterRing(Ring* _ring);
  void measureRoom();
  Ring* takeRing(std::size_t _needed);
  void recycle(Ring* _ring);
  void stopCounting(Ring& _ring);

  HeldBytes& held_;
  std::atomic<int> users_{2};

  // The producer's; apart from the consumer's.
  alignas(64) char* room_ = nullptr;
  char* roomEnd_ = nullptr;
  Ring* ring_;
  std::size_t position_ = 0;
  // The consumer's.
  alignas(64) Ring* firstRing_;
  Ring* reading_;
  std::size_t readPosition_ = 0;
  std::size_t readEnd_ = 0;
  /// An unused ring of the usual size.
  alignas(64) std::atomic<Ring*> spare_{nullptr};
};

}  // namespace boost::logging::detail
