// SPDX-License-Identifier: MIT
#include "platform/linux/time_zone.h"

#include <atomic>
#include <ctime>

namespace platform {
namespace {

constexpr std::int64_t secondsBetweenLooks = 30;

constinit std::atomic<std::int64_t> nextLook{0};

}  // namespace

void followTimeZone(std::int64_t _now) {
  std::int64_t due = nextLook.load(std::memory_order_relaxed);
  // A look that is due later than that was planned before the process was moved to another system, with another clock.
  if (_now < due && due - _now <= secondsBetweenLooks) return;
  // One of the threads that come here at once is enough.
  if (nextLook.compare_exchange_strong(due, _now + secondsBetweenLooks, std::memory_order_relaxed)) ::tzset();
}

}  // namespace platform
