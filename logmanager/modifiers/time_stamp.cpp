// SPDX-License-Identifier: MIT
#include "logmanager/modifiers/time_stamp.h"

#include <atomic>
#include <cstring>

#include "platform/clock.h"

namespace boost::logging::detail {
namespace {

constexpr std::int64_t MILLISECONDS = 1000;

}  // namespace

std::uint64_t TimeStamp::nextId() {
  static constinit std::atomic<std::uint64_t> latest{0};
  return ++latest;
}

std::string_view TimeStamp::newText(std::int64_t _time, ThreadState::TimeText& _latest, std::string& _memory) const {
  std::int64_t millisecond = _time % MILLISECONDS;
  if (millisecond < 0) millisecond += MILLISECONDS;
  const std::int64_t second = (_time - millisecond) / MILLISECONDS;
  if ((_latest.formatId != id_ || _latest.second != second) && !refresh(_latest, second)) {
    _memory = format_.text(platform::toLocalTime(_time));
    return _memory;
  }
  for (const std::size_t place : format_.millisecondPlaces()) {
    _latest.text[place] = static_cast<char>('0' + millisecond / 100);
    _latest.text[place + 1] = static_cast<char>('0' + millisecond / 10 % 10);
    _latest.text[place + 2] = static_cast<char>('0' + millisecond % 10);
  }
  _latest.time = _time;
  return {_latest.text, _latest.size};
}

// false, and nothing is changed, when the text does not fit, or its milliseconds are not where they are for years of
// four digits.
bool TimeStamp::refresh(ThreadState::TimeText& _latest, std::int64_t _second) const {
  const platform::LocalTime time = platform::toLocalTime(_second * MILLISECONDS);
  const std::string text = format_.text(time);
  if (text.size() > sizeof(_latest.text) || time.year < 0 || time.year > 9999) return false;
  _latest.formatId = id_;
  _latest.second = _second;
  _latest.size = text.size();
  std::memcpy(_latest.text, text.data(), text.size());
  return true;
}

}  // namespace boost::logging::detail
