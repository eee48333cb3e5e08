// SPDX-License-Identifier: MIT
#include "platform/clock.h"

#include "platform/fault.h"
#include "platform/win32/windows_api.h"

namespace platform {
namespace {

// A FILETIME counts steps of 100 ns since 1601-01-01 00:00 UTC.
constexpr std::int64_t stepsPerMillisecond = 10000;
constexpr std::int64_t nanosecondsPerStep = 100;
constexpr std::int64_t millisecondsFrom1601To1970 = 11644473600000;
constexpr std::int64_t millisecondsPerSecond = 1000;

LocalTime localTimeOf(const SYSTEMTIME& _time) {
  return {_time.wYear, _time.wMonth, _time.wDay, _time.wHour, _time.wMinute, _time.wSecond, _time.wMilliseconds};
}

}  // namespace

std::int64_t wallClockMilliseconds() {
  if (injectedFault(Call::clock) != noError) return 0;
  FILETIME now{};
  ::GetSystemTimeAsFileTime(&now);
  const std::int64_t steps = static_cast<std::int64_t>(now.dwHighDateTime) << 32 | now.dwLowDateTime;
  return steps / stepsPerMillisecond - millisecondsFrom1601To1970;
}

std::int64_t wallClockNanoseconds() {
  FILETIME now{};
  ::GetSystemTimeAsFileTime(&now);
  const std::uint64_t steps = std::uint64_t{now.dwHighDateTime} << 32U | now.dwLowDateTime;
  return (static_cast<std::int64_t>(steps) - millisecondsFrom1601To1970 * stepsPerMillisecond) * nanosecondsPerStep;
}

std::int64_t steadyMilliseconds() {
  if (injectedFault(Call::clock) != noError) return 0;
  LARGE_INTEGER ticks{};
  LARGE_INTEGER perSecond{};
  ::QueryPerformanceCounter(&ticks);
  ::QueryPerformanceFrequency(&perSecond);
  // In two parts, because the product of the whole can pass 64 bits.
  const std::int64_t seconds = ticks.QuadPart / perSecond.QuadPart;
  const std::int64_t rest = ticks.QuadPart % perSecond.QuadPart;
  return seconds * millisecondsPerSecond + rest * millisecondsPerSecond / perSecond.QuadPart;
}

LocalTime toLocalTime(std::int64_t _milliseconds) {
  const std::int64_t steps = (_milliseconds + millisecondsFrom1601To1970) * stepsPerMillisecond;
  const FILETIME time{static_cast<DWORD>(steps), static_cast<DWORD>(steps >> 32)};
  SYSTEMTIME utc{};
  SYSTEMTIME local{};
  if (!::FileTimeToSystemTime(&time, &utc) || !::SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local)) return {};
  return localTimeOf(local);
}

LocalTime localTime() {
  if (injectedFault(Call::clock) != noError) return {};
  SYSTEMTIME now{};
  ::GetLocalTime(&now);
  return localTimeOf(now);
}

}  // namespace platform
