// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace platform {

/// Blocks every signal for the calling thread while it lives. A thread created meanwhile starts with every signal
/// blocked and keeps them blocked: signals of the application must reach the application's threads.
///
///   const platform::AllSignalsBlocked blocked;
///   thread = boost::thread(...);
///
/// Never fails and never allocates. Does nothing on Windows, which has no signals.
class AllSignalsBlocked {
 public:
  AllSignalsBlocked() noexcept;

  /// Restores the signal mask of the calling thread, which must be the one that constructed the object.
  ~AllSignalsBlocked();
  AllSignalsBlocked(const AllSignalsBlocked&) = delete;
  AllSignalsBlocked& operator=(const AllSignalsBlocked&) = delete;

 private:
  std::uint64_t former_[16];
};

}  // namespace platform
