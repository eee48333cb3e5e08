// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace testsupport {

/// While it lives, the _nth allocation of this thread (1 is the next one) fails. Linking the source of this header
/// replaces operator new.
class ScarceMemory {
 public:
  explicit ScarceMemory(int _nth);
  ~ScarceMemory();
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;

  /// Lets the next allocation of this thread fail, without an object that must live on.
  static void failNext();

  /// Whether the failure has happened.
  bool hasFailed() const;
};

/// The peak of memory in use, above what was in use at the construction. Counts all threads.
class MemoryPeak {
 public:
  MemoryPeak();
  std::size_t bytes() const;

 private:
  std::size_t before_;
};

}  // namespace testsupport
