// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>

namespace platform {

/// A word that is 0 at first, and that stays one and the same in this process and in all that are forked from it. On
/// Windows, which does not fork, it is memory like any other.
class ForkSharedWord {
 public:
  ForkSharedWord();
  ~ForkSharedWord();
  ForkSharedWord(const ForkSharedWord&) = delete;
  ForkSharedWord& operator=(const ForkSharedWord&) = delete;

  /// False where there was no memory for it: then a forked child has a copy of its own.
  bool isShared() const { return value_ != &own_; }

  std::atomic<std::uint32_t>& value() { return *value_; }

  /// Waits a moment, for one who looks at the word until another process changes it. A cancellation point.
  static void pause();

 private:
  std::atomic<std::uint32_t> own_{0};
  std::atomic<std::uint32_t>* value_ = &own_;
};

}  // namespace platform
