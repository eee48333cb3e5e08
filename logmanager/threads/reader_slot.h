// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>

namespace boost::logging::detail {

/// Lets one reader at a time keep alive an object that a pointer publishes, without a lock: while it reads, the slot
/// shows the object to whoever replaces it, who frees it only when no slot shows it.
///
/// A reader first shows the object and then makes sure that it is still the published one. These two steps, the
/// replacement of the pointer and the look at the slots have one order for all threads; so either the reader finds the
/// new object, or its slot is seen.
class alignas(64) ReaderSlot {
 public:
  ReaderSlot() = default;
  ReaderSlot(const ReaderSlot&) = delete;
  ReaderSlot& operator=(const ReaderSlot&) = delete;

  /// Takes a free slot and holds the published object, or null, until leave().
  /// @param _published a std::atomic<T*>, or what a test puts in its place.
  /// @return false when the slot is taken; _object is then undefined.
  template <typename Published, typename T>
  bool tryHold(const Published& _published, T*& _object) {
    _object = _published.load(std::memory_order_acquire);
    std::uintptr_t expected = notTaken;
    if (!shown_.compare_exchange_strong(expected, taken(_object), std::memory_order_seq_cst,
                                        std::memory_order_relaxed)) {
      return false;
    }
    if (_published.load(std::memory_order_seq_cst) != _object) _object = hold(_published);
    return true;
  }

  /// Takes a slot that nobody else knows.
  void take() { shown_.store(taken(nullptr), std::memory_order_relaxed); }

  /// Holds the published object in a slot that the caller has taken.
  template <typename Published>
  auto* hold(const Published& _published) {
    auto* object = _published.load(std::memory_order_acquire);
    while (true) {
      shown_.store(taken(object), std::memory_order_seq_cst);
      auto* const now = _published.load(std::memory_order_seq_cst);
      if (now == object) return object;
      object = now;
    }
  }

  /// For the child of a fork: releases the object of a reader that does not exist here. The slot stays taken.
  void holdNothing() {
    if (shown_.load(std::memory_order_relaxed) != notTaken) take();
  }

  void leave() { shown_.store(notTaken, std::memory_order_release); }

  /// Ask after the pointer to the object has been replaced.
  bool mayHold(const void* _object) const { return shown_.load(std::memory_order_seq_cst) == taken(_object); }

 private:
  static constexpr std::uintptr_t notTaken = 0;

  /// The address, made odd so that a taken slot without an object is not free.
  static std::uintptr_t taken(const void* _object) { return reinterpret_cast<std::uintptr_t>(_object) | 1U; }

  std::atomic<std::uintptr_t> shown_{notTaken};
};

}  // namespace boost::logging::detail
