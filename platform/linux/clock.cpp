// SPDX-License-Identifier: MIT
#include "platform/clock.h"

#include <ctime>
#include <mutex>

#include "platform/fault.h"
#include "platform/fork_handlers.h"
#include "platform/linux/time_zone.h"

namespace platform {
namespace {

constexpr std::int64_t millisecondsPerSecond = 1000;
constexpr std::int64_t nanosecondsPerMillisecond = 1000000;
constexpr std::int64_t nanosecondsPerSecond = 1000000000;

// The C library keeps the time zone under a lock, which a fork leaves held in the child when another thread has it. So
// no thread of ours may be inside at that moment.
constinit std::mutex timeZoneLock;

[[maybe_unused]] const bool isRegistered = [] {
  registerForkHandlers([] { timeZoneLock.lock(); }, [] { timeZoneLock.unlock(); }, [] { timeZoneLock.unlock(); });
  return true;
}();

// 0 when the clock cannot be read.
std::int64_t read(clockid_t _clock) {
  if (injectedFault(Call::clock) != noError) return 0;
  timespec now{};
  if (::clock_gettime(_clock, &now) != 0) return 0;
  return static_cast<std::int64_t>(now.tv_sec) * millisecondsPerSecond + now.tv_nsec / nanosecondsPerMillisecond;
}

}  // namespace

std::int64_t wallClockMilliseconds() { return read(CLOCK_REALTIME); }

std::int64_t wallClockNanoseconds() {
  timespec now{};
  if (::clock_gettime(CLOCK_REALTIME, &now) != 0) return 0;
  return static_cast<std::int64_t>(now.tv_sec) * nanosecondsPerSecond + now.tv_nsec;
}

std::int64_t steadyMilliseconds() { return read(CLOCK_MONOTONIC); }

LocalTime toLocalTime(std::int64_t _milliseconds) {
  // Rounded down, so that the millisecond is never negative before 1970.
  std::int64_t millisecond = _milliseconds % millisecondsPerSecond;
  if (millisecond < 0) millisecond += millisecondsPerSecond;
  const std::time_t seconds = (_milliseconds - millisecond) / millisecondsPerSecond;
  std::tm local{};
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  const std::lock_guard<std::mutex> lock(timeZoneLock);
  followTimeZone(now.tv_sec);
  if (::localtime_r(&seconds, &local) == nullptr) return {};
  return {local.tm_year + 1900,         local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec,
          static_cast<int>(millisecond)};
}

LocalTime localTime() {
  const std::int64_t now = wallClockMilliseconds();
  return now == 0 ? LocalTime{} : toLocalTime(now);
}

}  // namespace platform
