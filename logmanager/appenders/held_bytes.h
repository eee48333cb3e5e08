// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>

namespace boost::logging::detail {

/// Counts the bytes of the rings in which messages of one writer wait, up to a limit. Any thread.
class HeldBytes {
 public:
  explicit HeldBytes(std::size_t _limit) : limit_(_limit) {}

  /// @return false, with nothing counted, when that would exceed the limit.
  bool add(std::size_t _size) {
    std::size_t bytes = bytes_.load(std::memory_order_relaxed);
    do {
      if (_size > limit_ || bytes > limit_ - _size) return false;
    } while (!bytes_.compare_exchange_weak(bytes, bytes + _size, std::memory_order_relaxed));
    return true;
  }

  void remove(std::size_t _size) { bytes_.fetch_sub(_size, std::memory_order_relaxed); }
  void clear() { bytes_.store(0, std::memory_order_relaxed); }
  std::size_t bytes() const { return bytes_.load(std::memory_order_relaxed); }
  bool isHalfEmpty() const { return bytes_.load(std::memory_order_relaxed) <= limit_ / 2; }

 private:
  const std::size_t limit_;
  std::atomic<std::size_t> bytes_{0};
};

}  // namespace boost::logging::detail
