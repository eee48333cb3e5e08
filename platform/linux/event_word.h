// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <ctime>

namespace platform {

// The state of an event is one word of shared memory: bit 0 says whether it is set, the other bits are a generation
// that grows with each setting. A waiter remembers the generation that it found, so that a setting that is reset before
// the waiter runs still lets it through.

void setEventWord(std::uint32_t* _word);
void resetEventWord(std::uint32_t* _word);

/// The generation, as a number that grows by 1.
std::uint32_t countSettings(std::uint32_t* _word);

/// Wakes every thread of every process that sleeps on the word. The word does not change: a waiter that is not let
/// through sleeps again.
void wakeEventWaiters(std::uint32_t* _word);

/// One wait for an event, beginning with the construction.
class EventWatch {
 public:
  explicit EventWatch(std::uint32_t* _word);

  /// Whether the event is set, or has been at any time since construction.
  bool isLetThrough();

  /// Sleeps until the word differs from what isLetThrough has seen, somebody wakes the waiters, a signal arrives, or
  /// the moment of CLOCK_MONOTONIC has come. Not a cancellation point.
  void sleepUntil(const timespec& _moment) const;

 private:
  std::uint32_t* word_;
  std::uint32_t seen_;
  std::uint32_t generation_;
};

}  // namespace platform
