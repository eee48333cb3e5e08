// SPDX-License-Identifier: MIT
#include "tools/logs/civil_time.h"

#include <array>
#include <chrono>
#include <cstdio>

namespace qmrkctl {
namespace {

bool isTimeOfDay(const platform::LocalTime& _time) {
  return _time.hour >= 0 && _time.hour < 24 && _time.minute >= 0 && _time.minute < 60 && _time.second >= 0 &&
         _time.second <= 60 && _time.millisecond >= 0 && _time.millisecond < 1000;
}

}  // namespace

std::optional<CivilTime> civilTime(const platform::LocalTime& _time) {
  using namespace std::chrono;
  if (_time.year < 1970 || _time.year > 9999 || _time.month < 1 || _time.day < 1 || !isTimeOfDay(_time)) return {};
  const year_month_day date(year(_time.year), month(static_cast<unsigned>(_time.month)),
                            day(static_cast<unsigned>(_time.day)));
  if (!date.ok()) return {};
  const milliseconds moment = sys_days(date).time_since_epoch() + hours(_time.hour) + minutes(_time.minute) +
                              seconds(_time.second) + milliseconds(_time.millisecond);
  return moment.count();
}

std::string civilText(CivilTime _time) {
  using namespace std::chrono;
  const sys_time<milliseconds> moment{milliseconds(_time)};
  const auto midnight = floor<days>(moment);
  const year_month_day date(midnight);
  const hh_mm_ss time(moment - midnight);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02d", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                static_cast<int>(time.seconds().count()));
  return text.data();
}

CivilTime civilNow() { return civilTime(platform::localTime()).value_or(0); }

}  // namespace qmrkctl
