// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>

namespace boost::logging::detail {

/// With a slot one reader at a time keeps an object alive that a pointer published, without a lock: while it reads,
/// the slot tells those that replaced the object that it may be in use. The object is freed when no slot tells so.
///
/// A reader enters the slot, holds the object, uses it and leaves. Between entering and holding, which takes some
/// instructions, the slot stands for any object; afterwards for the one that it holds. As the entering precedes the
/// read of the pointer, and the replacement of the pointer precedes the look at the slots, either the reader gets the
/// new object or the slot is seen.
class alignas(64) ReaderSlot {
 public:
  ReaderSlot() = default;
  ReaderSlot(const ReaderSlot&) = delete;
  ReaderSlot& operator=(const ReaderSlot&) = delete;

  /// @return false when somebody is in the slot.
  bool tryEnter() {
    Phase expected = Phase::free;
    return phase_.compare_exchange_strong(expected, Phase::entered, std::memory_order_seq_cst,
                                          std::memory_order_relaxed);
  }

  /// Called once after entering.
  template <typename T>
  T* hold(const std::atomic<T*>& _published) {
    T* const object = _published.load(std::memory_order_seq_cst);
    held_.store(object, std::memory_order_release);
    phase_.store(Phase::holding, std::memory_order_release);
    return object;
  }

  void leave() { phase_.store(Phase::free, std::memory_order_release); }

  /// Asked after the pointer to the object has been replaced.
  bool mayHold(const void* _object) const {
    switch (phase_.load(std::memory_order_seq_cst)) {
      case Phase::free:
        return false;
      case Phase::entered:
        return true;
      case Phase::holding:
        break;
    }
    return held_.load(std::memory_order_acquire) == _object;
  }

 private:
  enum class Phase { free, entered, holding };

  std::atomic<Phase> phase_{Phase::free};
  std::atomic<const void*> held_{nullptr};
};

}  // namespace boost::logging::detail
