// SPDX-License-Identifier: MIT
#include "platform/linux/deadline.h"

#include <algorithm>

#include "platform/handle.h"

namespace platform {
namespace {

constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
constexpr std::int64_t nanosecondsPerMillisecond = 1'000'000;

// In nanoseconds; rounded to milliseconds a wait would end too early.
std::int64_t now() {
  timespec moment{};
  ::clock_gettime(CLOCK_MONOTONIC, &moment);
  return moment.tv_sec * nanosecondsPerSecond + moment.tv_nsec;
}

}  // namespace

Deadline::Deadline(std::uint32_t _milliseconds)
    : isNever_(_milliseconds == waitForever), moment_(now() + _milliseconds * nanosecondsPerMillisecond) {}

bool Deadline::hasPassed() const { return !isNever_ && now() >= moment_; }

timespec Deadline::within(std::uint32_t _milliseconds) const {
  const std::int64_t cut = now() + _milliseconds * nanosecondsPerMillisecond;
  const std::int64_t moment = isNever_ ? cut : std::min(cut, moment_);
  return {static_cast<time_t>(moment / nanosecondsPerSecond), static_cast<long>(moment % nanosecondsPerSecond)};
}

}  // namespace platform
