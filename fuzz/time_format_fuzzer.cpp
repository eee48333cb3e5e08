// SPDX-License-Identifier: MIT
// A point in time, in seven bytes, and any format: the text is what a naive replacement makes, and only the places that
// are told to hold milliseconds change with them.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

#include "logmanager/modifiers/time_stamp.h"

namespace {

using boost::logging::detail::TimeFormat;

constexpr std::size_t timeBytes = 7;

std::string padded(int _value, int _digits) {
  char text[16];
  std::snprintf(text, sizeof text, "%0*d", _digits, _value);
  return text;
}

platform::LocalTime timeFrom(const std::uint8_t* _bytes) {
  platform::LocalTime time{};
  time.year = _bytes[0] * 39;
  time.month = _bytes[1] % 12 + 1;
  time.day = _bytes[2] % 31 + 1;
  time.hour = _bytes[3] % 24;
  time.minute = _bytes[4] % 60;
  time.second = _bytes[5] % 61;
  time.millisecond = _bytes[6] * 3;
  return time;
}

// At each place: the first placeholder that stands there, else the character.
std::string naiveText(std::string_view _format, const platform::LocalTime& _time) {
  const std::pair<std::string_view, std::string> parts[] = {
      {"$yyyy", padded(_time.year, 4)},      {"$MM", padded(_time.month, 2)},  {"$dd", padded(_time.day, 2)},
      {"$hh", padded(_time.hour, 2)},        {"$mm", padded(_time.minute, 2)}, {"$ss", padded(_time.second, 2)},
      {"$mss", padded(_time.millisecond, 3)}};
  std::string text;
  while (!_format.empty()) {
    const auto* const part =
        std::ranges::find_if(parts, [_format](const auto& _part) { return _format.starts_with(_part.first); });
    text += part != std::end(parts) ? part->second : std::string(1, _format.front());
    _format.remove_prefix(part != std::end(parts) ? part->first.size() : 1);
  }
  return text;
}

// Writes other milliseconds into the text of a time, as the modifier does within a second.
std::string withMilliseconds(const TimeFormat& _format, std::string _text, int _milliseconds) {
  const std::string digits = padded(_milliseconds, 3);
  for (const std::size_t place : _format.millisecondPlaces())
    _text.replace(place, digits.size(), digits);
  return _text;
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the name is that of libFuzzer
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* _data, std::size_t _size) {
  if (_size < timeBytes) return 0;
  platform::LocalTime time = timeFrom(_data);
  const std::string text(_data + timeBytes, _data + _size);
  const TimeFormat format(text);
  const std::string formatted = format.text(time);
  if (formatted != naiveText(text, time)) std::abort();
  time.millisecond = 999 - time.millisecond;
  if (withMilliseconds(format, formatted, time.millisecond) != format.text(time)) std::abort();
  return 0;
}
