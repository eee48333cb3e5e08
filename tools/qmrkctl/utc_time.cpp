// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/utc_time.h"

#include <array>
#include <chrono>
#include <cstdio>

namespace qmrkctl {

std::string utcText(std::int64_t _milliseconds) {
  const std::chrono::sys_time<std::chrono::milliseconds> moment{std::chrono::milliseconds(_milliseconds)};
  const auto midnight = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(midnight);
  const std::chrono::hh_mm_ss time(moment - midnight);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                static_cast<int>(time.seconds().count()), static_cast<int>(time.subseconds().count()));
  return text.data();
}

std::int64_t millisecondsNow() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

std::string utcNow() { return utcText(millisecondsNow()); }

}  // namespace qmrkctl
