// SPDX-License-Identifier: MIT
#include "platform/tick_clock.h"

#include <atomic>
#include <chrono>

#if defined(__x86_64__) || defined(__i386__)
#include <cpuid.h>
#include <x86intrin.h>
#endif

namespace platform {
namespace {

template <typename Clock>
std::int64_t nanoseconds() {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch()).count();
}

#if defined(__x86_64__) || defined(__i386__)

constexpr unsigned int powerManagementLeaf = 0x80000007U;
constexpr unsigned int invariantCounter = 1U << 8;

bool askForInvariantCounter() {
  unsigned int a = 0;
  unsigned int b = 0;
  unsigned int c = 0;
  unsigned int d = 0;
  return __get_cpuid(powerManagementLeaf, &a, &b, &c, &d) != 0 && (d & invariantCounter) != 0;
}

bool counterIsInvariant() {
  // Not the guard of a local static, which a forked child could find taken.
  enum Answer : int { unknown, no, yes };
  static constinit std::atomic<int> known{unknown};
  int answer = known.load(std::memory_order_relaxed);
  if (answer == unknown) {
    answer = askForInvariantCounter() ? yes : no;
    known.store(answer, std::memory_order_relaxed);
  }
  return answer == yes;
}

std::uint64_t counter() {
  return counterIsInvariant() ? __rdtsc() : static_cast<std::uint64_t>(nanoseconds<std::chrono::steady_clock>());
}

#else

std::uint64_t counter() { return static_cast<std::uint64_t>(nanoseconds<std::chrono::steady_clock>()); }

#endif

}  // namespace

std::uint64_t ticks() { return counter(); }

// A thread that is held up between the readings reads again.
TickMoment tickMoment() {
  constexpr int mostTries = 10;
  constexpr std::int64_t longestReading = 2000;
  TickMoment moment;
  for (int i = 0; i < mostTries; ++i) {
    const auto begin = nanoseconds<std::chrono::steady_clock>();
    moment.wall = nanoseconds<std::chrono::system_clock>();
    moment.ticks = ticks();
    moment.steady = nanoseconds<std::chrono::steady_clock>();
    if (moment.steady - begin < longestReading) break;
  }
  return moment;
}

TickRate::TickRate(const TickMoment& _first, const TickMoment& _later) {
  if (_later.ticks <= _first.ticks || _later.steady <= _first.steady) return;
  nanosecondsPerTick_ =
      static_cast<double>(_later.steady - _first.steady) / static_cast<double>(_later.ticks - _first.ticks);
}

std::int64_t TickRate::between(std::uint64_t _from, std::uint64_t _to) const {
  return static_cast<std::int64_t>(static_cast<double>(static_cast<std::int64_t>(_to - _from)) * nanosecondsPerTick_);
}

}  // namespace platform
