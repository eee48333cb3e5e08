// SPDX-License-Identifier: MIT
#include "tests/support/processor_time.h"

#include <windows.h>

#include <cstdint>

namespace testsupport {
namespace {

// A FILETIME counts steps of 100 ns.
std::chrono::microseconds toMicroseconds(const FILETIME& _time) {
  return std::chrono::microseconds(
      (static_cast<std::int64_t>(_time.dwHighDateTime) << 32 | static_cast<std::int64_t>(_time.dwLowDateTime)) / 10);
}

}  // namespace

std::chrono::microseconds processorTime() {
  FILETIME begin{};
  FILETIME end{};
  FILETIME kernel{};
  FILETIME user{};
  ::GetProcessTimes(::GetCurrentProcess(), &begin, &end, &kernel, &user);
  return toMicroseconds(kernel) + toMicroseconds(user);
}

}  // namespace testsupport
