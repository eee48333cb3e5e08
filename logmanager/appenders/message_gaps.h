// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>

namespace boost::logging::detail {

/// Learns from the times between messages whether to expect the next one shortly. A value.
class MessageGaps {
 public:
  using Duration = std::chrono::steady_clock::duration;
  using Time = std::chrono::steady_clock::time_point;

  /// Call it when a look has found messages, once per look.
  void noteArrival(Time _now) {
    average_ = (average_ + std::min<Duration>(_now - latest_, longest)) / 2;
    latest_ = _now;
  }

  /// Whether to expect a message within the duration: they came at such a rate, and have not stopped.
  bool isOneExpectedWithin(Duration _duration, Time _now) const {
    return average_ < _duration && _now - latest_ < _duration;
  }

 private:
  static constexpr std::chrono::milliseconds longest{50};
  Duration average_ = longest;
  Time latest_;
};

}  // namespace boost::logging::detail
