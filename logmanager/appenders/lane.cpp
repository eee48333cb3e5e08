// SPDX-License-Identifier: MIT
#include "logmanager/appenders/lane.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

namespace boost::logging::detail {
namespace {

constexpr std::size_t firstSize = 4096;
constexpr std::size_t usualSize = 65536;
constexpr std::size_t pageSize = 4096;
/// The size of a record that only fills the end of a ring.
constexpr std::size_t filler = ~std::size_t{0};

constexpr std::size_t roundedUp(std::size_t _size) { return (_size + alignof(Record) - 1) & ~(alignof(Record) - 1); }

std::size_t wholePages(std::size_t _size) { return (_size + pageSize - 1) & ~(pageSize - 1); }

std::size_t sizeInRing(std::size_t _textSize) { return sizeof(Record) + roundedUp(_textSize); }

}  // namespace

/// Positions only grow; their remainder by the capacity is the place in the memory where that is a power of two. Any
/// other ring is used up once.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): its two counters do not share cache lines
struct Lane::Ring {
  explicit Ring(std::size_t _capacity, bool _isCounted)
      : capacity(_capacity),
        mask(std::has_single_bit(_capacity) ? _capacity - 1 : ~std::size_t{0}),
        isCounted(_isCounted),
        memory(new (std::align_val_t{alignof(Record)}) char[_capacity]) {
    // Touched now, so that no statement meets the page faults.
    for (std::size_t i = 0; i < capacity; i += pageSize)
      memory[i] = 0;
  }
  ~Ring() { ::operator delete[](memory, std::align_val_t{alignof(Record)}); }
  Ring(const Ring&) = delete;
  Ring& operator=(const Ring&) = delete;

  char* at(std::size_t _position) const { return memory + (_position & mask); }
  std::size_t toEnd(std::size_t _position) const { return capacity - (_position & mask); }

  /// Whether it goes round its memory.
  bool isRound() const { return mask + 1 == capacity; }

  const std::size_t capacity;
  const std::size_t mask;
  /// Among the held bytes; the consumer's once the producer has entered it.
  bool isCounted;
  char* const memory;
  std::atomic<Ring*> next{nullptr};
  /// Of the first rings that forked children have forgotten, which nobody may free: where a leak checker finds them.
  static constinit std::atomic<Ring*> forgotten_;
  Ring* formerForgotten = nullptr;
  alignas(64) std::atomic<std::size_t> written{0};
  alignas(64) std::atomic<std::size_t> consumed{0};
};

constinit std::atomic<Lane::Ring*> Lane::Ring::forgotten_{nullptr};

Lane* Lane::create(HeldBytes& _held) { return new Lane(_held); }

// The first ring is small and not counted, so that a lane can always be made.
Lane::Lane(HeldBytes& _held) : held_(_held), ring_(new Ring(firstSize, false)), firstRing_(ring_), reading_(ring_) {
  enterRing(ring_);
}

Lane::~Lane() {
  for (Ring* ring = firstRing_; ring != nullptr;) {
    const std::unique_ptr<Ring> done(ring);
    ring = ring->next.load(std::memory_order_relaxed);
  }
  delete spare_.load(std::memory_order_relaxed);
}

void Lane::release() {
  if (users_.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
}

void Lane::publish(std::uint64_t _stamp, std::uint64_t _ticks, const LinePlan* _plan, const std::string* _logName,
                   std::size_t _size) {
  new (room_) Record{_stamp, _ticks, _plan, _logName, _size};
  const std::size_t size = sizeInRing(_size);
  room_ += size;
  position_ += size;
  ring_->written.store(position_, std::memory_order_release);
}

bool Lane::makeMoreRoom(std::size_t _begun, std::size_t _textSize) {
  return sizeInRing(_textSize) <= usualSize && findRoom(_begun, _textSize);
}

void Lane::leaveLongRing() noexcept {
  if (ring_->capacity <= usualSize) return;
  try {
    addRing(sizeInRing(0), nullptr, 0);
  } catch (...) {
    // No memory: the next record goes on in the long one, or leaves it.
  }
}

bool Lane::findRoom(std::size_t _begun, std::size_t _textSize) {
  const std::size_t needed = sizeInRing(_textSize);
  const char* const begun = room_ + sizeof(Record);
  measureRoom();
  if (static_cast<std::size_t>(roomEnd_ - room_) >= needed) return true;
  if (!wrap(needed)) return addRing(needed, begun, _begun);
  // What moves to the beginning of the same ring may overlap there.
  if (_begun > 0) std::memmove(textBegin(), begun, _begun);
  return true;
}

void Lane::enterRing(Ring* _ring) {
  ring_ = _ring;
  position_ = 0;
  measureRoom();
}

// The room goes up to the end of the memory or to what the consumer has not read.
void Lane::measureRoom() {
  const std::size_t used = position_ - ring_->consumed.load(std::memory_order_acquire);
  room_ = ring_->at(position_);
  roomEnd_ = room_ + std::min(ring_->toEnd(position_), ring_->capacity - used);
}

// Goes on at the beginning of the ring's memory, where the room there is enough.
bool Lane::wrap(std::size_t _needed) {
  if (!ring_->isRound()) return false;
  const std::size_t toEnd = ring_->toEnd(position_);
  const std::size_t used = position_ - ring_->consumed.load(std::memory_order_acquire);
  if (toEnd == ring_->capacity || ring_->capacity - used < toEnd + _needed) return false;
  if (toEnd >= sizeof(Record)) new (room_) Record{0, 0, nullptr, nullptr, filler};
  position_ += toEnd;
  measureRoom();
  return true;
}

// The former ring may be gone as soon as the consumer can see the next one, so what was begun there moves before.
bool Lane::addRing(std::size_t _needed, const char* _begun, std::size_t _begunSize) {
  Ring* const ring = takeRing(_needed);
  if (ring == nullptr) return false;
  Ring* const former = ring_;
  enterRing(ring);
  if (_begunSize > 0) std::memcpy(textBegin(), _begun, _begunSize);
  former->next.store(ring, std::memory_order_release);
  return true;
}

// null when the limit is reached.
Lane::Ring* Lane::takeRing(std::size_t _needed) {
  std::size_t capacity = std::clamp(2 * ring_->capacity, firstSize, usualSize);
  if (_needed > capacity) capacity = wholePages(_needed);
  if (capacity == usualSize && spare_.load(std::memory_order_relaxed) != nullptr) {
    if (Ring* const spare = spare_.exchange(nullptr, std::memory_order_acquire)) return spare;
  }
  if (!held_.add(capacity)) {
    const std::size_t least = wholePages(_needed);
    if (least >= capacity || !held_.add(least)) return nullptr;
    capacity = least;
  }
  try {
    return new Ring(capacity, true);
  } catch (...) {
    held_.remove(capacity);
    throw;
  }
}

const Record* Lane::peek() {
  while (true) {
    if (readPosition_ == readEnd_) {
      readEnd_ = reading_->written.load(std::memory_order_acquire);
      if (readPosition_ == readEnd_) {
        Ring* const next = reading_->next.load(std::memory_order_acquire);
        if (next == nullptr) return nullptr;
        // Nothing is written to a ring any more after the next one is there.
        readEnd_ = reading_->written.load(std::memory_order_acquire);
        if (readPosition_ != readEnd_) continue;
        reading_ = next;
        readPosition_ = 0;
        readEnd_ = 0;
        continue;
      }
    }
    const std::size_t toEnd = reading_->toEnd(readPosition_);
    const auto* const record = reinterpret_cast<const Record*>(reading_->at(readPosition_));
    if (toEnd >= sizeof(Record) && record->size != filler) return record;
    readPosition_ += toEnd;
  }
}

void Lane::pass(const Record& _record) { readPosition_ += sizeInRing(_record.size); }

void Lane::consume() {
  while (firstRing_ != reading_) {
    Ring* const done = firstRing_;
    firstRing_ = done->next.load(std::memory_order_relaxed);
    recycle(done);
  }
  reading_->consumed.store(readPosition_, std::memory_order_release);
  // The producer counts no ring that it has entered.
  if (readPosition_ == reading_->written.load(std::memory_order_relaxed)) stopCounting(*reading_);
}

void Lane::rewind() {
  reading_ = firstRing_;
  readPosition_ = reading_->consumed.load(std::memory_order_relaxed);
  readEnd_ = readPosition_;
}

// The parent's consumer and producer may have been anywhere, also on the way to another ring: what came before the
// producer's ring is left as it is.
void Lane::forgetAll() {
  if (firstRing_ != ring_) firstRing_->formerForgotten = Ring::forgotten_.exchange(firstRing_);
  firstRing_ = ring_;
  reading_ = ring_;
  readPosition_ = ring_->written.load(std::memory_order_relaxed);
  readEnd_ = readPosition_;
  // The bytes are forgotten all at once.
  ring_->isCounted = false;
}

void Lane::stopCounting(Ring& _ring) {
  if (!std::exchange(_ring.isCounted, false)) return;
  held_.remove(_ring.capacity);
}

void Lane::recycle(Ring* _ring) {
  stopCounting(*_ring);
  if (_ring->capacity == usualSize && spare_.load(std::memory_order_relaxed) == nullptr) {
    _ring->next.store(nullptr, std::memory_order_relaxed);
    _ring->written.store(0, std::memory_order_relaxed);
    _ring->consumed.store(0, std::memory_order_relaxed);
    // Only the consumer puts a spare there.
    spare_.store(_ring, std::memory_order_release);
    return;
  }
  delete _ring;
}

}  // namespace boost::logging::detail
