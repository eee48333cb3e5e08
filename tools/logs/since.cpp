// SPDX-License-Identifier: MIT
#include "tools/logs/since.h"

#include "tools/logs/text_scanner.h"

namespace qmrkctl {
namespace {

constexpr std::int64_t oneSecond = 1000;
constexpr std::int64_t oneMinute = 60 * oneSecond;
constexpr std::int64_t oneHour = 60 * oneMinute;
constexpr std::int64_t oneDay = 24 * oneHour;

std::int64_t unitOf(char _unit) {
  switch (_unit) {
    case 's':
      return oneSecond;
    case 'm':
      return oneMinute;
    case 'h':
      return oneHour;
    case 'd':
      return oneDay;
    default:
      return 0;
  }
}

// "10m" in milliseconds.
std::optional<std::int64_t> durationOf(std::string_view _text) {
  constexpr std::size_t mostDigits = 7;
  if (_text.size() < 2 || _text.size() > mostDigits + 1) return {};
  const std::int64_t unit = unitOf(_text.back());
  int number = 0;
  if (unit == 0 || !TextScanner(_text).takeNumber(_text.size() - 1, number)) return {};
  return number * unit;
}

bool takeDate(TextScanner& _scanner, platform::LocalTime& _time) {
  return _scanner.takeNumber(4, _time.year) && _scanner.take("-") && _scanner.takeNumber(2, _time.month) &&
         _scanner.take("-") && _scanner.takeNumber(2, _time.day);
}

// The seconds may be left out.
bool takeTime(TextScanner& _scanner, platform::LocalTime& _time) {
  if (!_scanner.takeNumber(2, _time.hour) || !_scanner.take(":") || !_scanner.takeNumber(2, _time.minute)) return false;
  _time.second = 0;
  return !_scanner.take(":") || _scanner.takeNumber(2, _time.second);
}

std::optional<CivilTime> timeOfDay(std::string_view _text, platform::LocalTime _today) {
  TextScanner scanner(_text);
  const std::optional<CivilTime> now = civilTime(_today);
  _today.millisecond = 0;
  if (!takeTime(scanner, _today) || !scanner.isAtEnd()) return {};
  const std::optional<CivilTime> today = civilTime(_today);
  if (!today || !now || *today <= *now) return today;
  return *today - oneDay;
}

}  // namespace

std::optional<CivilTime> sinceTime(std::string_view _text, std::int64_t _now,
                                   platform::LocalTime (*_toLocal)(std::int64_t)) {
  if (const auto duration = durationOf(_text)) {
    return civilTime(_toLocal(_now > *duration ? _now - *duration : 0));
  }
  TextScanner scanner(_text);
  platform::LocalTime time;
  if (!takeDate(scanner, time)) return timeOfDay(_text, _toLocal(_now));
  if (scanner.isAtEnd()) return civilTime(time);
  if (!scanner.take(" ") && !scanner.take("T")) return {};
  if (!takeTime(scanner, time) || !scanner.isAtEnd()) return {};
  return civilTime(time);
}

}  // namespace qmrkctl
