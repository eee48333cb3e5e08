// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <ctime>

namespace platform {

/// The end of a time-out, on the clock that never goes back.
class Deadline {
 public:
  /// _milliseconds from now; never for waitForever.
  explicit Deadline(std::uint32_t _milliseconds);

  bool isNever() const { return isNever_; }
  bool hasPassed() const;

  /// The deadline, or the moment _milliseconds from now when that comes first.
  timespec within(std::uint32_t _milliseconds) const;

 private:
  bool isNever_;
  std::int64_t moment_;
};

}  // namespace platform
