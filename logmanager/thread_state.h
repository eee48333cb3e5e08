// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace boost::logging::detail {

struct Context;
class ReaderSlot;

/// What the manager knows of the calling thread. Has no destructor, so that a thread, and the library, may end at any
/// time and a statement in a destructor of the thread still works; what the pointers point to belongs to pools.
struct ThreadState {
  /// The context of the innermost statement that runs.
  Context* innermost = nullptr;
  /// What the thread used last, probably free.
  Context* usualContext = nullptr;
  ReaderSlot* usualFileSlot = nullptr;
  /// How many messages are on their way through callables, one inside the other.
  int depth = 0;
  /// The wall-clock time of the innermost of these messages in milliseconds since 1970; 0 while nobody has asked.
  std::int64_t messageTime = 0;
};

ThreadState& threadState();

/// The time of the message that the calling thread passes through callables, else the time now.
std::int64_t messageTime();

}  // namespace boost::logging::detail
