// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace testsupport {

/// While it lives, the _nth request of this thread for memory (1 is the next one) fails. Linking the source of this
/// header replaces operator new.
class ScarceMemory {
 public:
  explicit ScarceMemory(int _nth);
  ~ScarceMemory();
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;

  /// Lets the next request of this thread fail, for which no object has to live on.
  static void failNext();

  /// Whether the failure has come.
  bool hasFailed() const;
};

/// The most memory that was in use at once, above what was in use at the construction. Counts all threads.
class MemoryPeak {
 public:
  MemoryPeak();
  std::size_t bytes() const;

 private:
  std::size_t before_;
};

}  // namespace testsupport
