// SPDX-License-Identifier: MIT
#pragma once

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

}  // namespace testsupport
