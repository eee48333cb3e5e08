// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>

namespace testsupport {

/// The bytes that operator new of this program has handed out and not received back. Linking the source of this header
/// replaces the operators.
std::size_t memoryInUse();

/// An allocation that waits: the one after that many others of the same thread.
struct HeldAllocation {
  int after = 0;
  std::atomic<bool> isHeld{false};
  /// Set by the test to let it go on.
  std::atomic<bool> isReleased{false};
};

/// Applies to the next allocations of the calling thread; null holds none any more.
void holdAllocation(HeldAllocation* _held);

/// Makes the allocation after that many others of the calling thread fail, once; none if the number is negative.
/// @return whether the one that the previous call named has failed.
bool failAllocation(int _after);

}  // namespace testsupport
