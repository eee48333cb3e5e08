// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace platform {

/// A counter that goes up with time at a constant rate and costs less to read than a clock: the processor's time-stamp
/// counter where it is invariant, else the steady clock. Two threads may read it slightly out of order, so it says when
/// something happened, not what happened first.
std::uint64_t ticks();

/// The counter, the steady clock and the wall clock (since 1970), read at one moment; clocks in nanoseconds.
struct TickMoment {
  std::uint64_t ticks = 0;
  std::int64_t steady = 0;
  std::int64_t wall = 0;
};

TickMoment tickMoment();

/// The rate of the counter, from two moments. A value.
class TickRate {
 public:
  /// @param _later must come at least some hundred microseconds after _first; otherwise every age is 0.
  TickRate(const TickMoment& _first, const TickMoment& _later);

  /// Nanoseconds from one reading of the counter to another; negative when _to is the earlier one.
  std::int64_t between(std::uint64_t _from, std::uint64_t _to) const;

 private:
  double nanosecondsPerTick_ = 0;
};

}  // namespace platform
