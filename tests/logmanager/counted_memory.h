// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>

namespace testsupport {

/// The bytes that operator new of this program has given out and not got back. Linking the source of this header
/// replaces the operators.
std::size_t memoryInUse();

/// An allocation that waits: the one that comes after so many others of the same thread.
struct HeldAllocation {
  int after = 0;
  std::atomic<bool> isHeld{false};
  /// Set by the test to let it go on.
  std::atomic<bool> isReleased{false};
};

/// For the next allocations of the calling thread; null: none is held any more.
void holdAllocation(HeldAllocation* _held);

/// Makes the allocation that comes after so many others of the calling thread fail, once; a negative number: none.
/// @return whether the one that the call before named has failed.
bool failAllocation(int _after);

}  // namespace testsupport
