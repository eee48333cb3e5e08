// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>

namespace boost::logging::detail {

/// Learns from the times between messages whether the next one is to be expected shortly. A value.
class MessageGaps {
 public:
  using Duration = std::chrono::steady_clock::duration;
  using Time = std::chrono::steady_clock::time_point;

  /// To be called when messages were found, not more often than they are looked for.
  void noteArrival(Time _now) {
    average_ = (average_ + std::min<Duration>(_now - latest_, longest)) / 2;
    latest_ = _now;
  }

  /// Whether a message is to be expected within the duration: they came at such a rate, and have not stopped to.
  bool isOneExpectedWithin(Duration _duration, Time _now) const {
    return average_ < _duration && _now - latest_ < _duration;
  }

 private:
  static constexpr std::chrono::milliseconds longest{50};
  Duration average_ = longest;
  Time latest_;
};

}  // namespace boost::logging::detail
