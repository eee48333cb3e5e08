// SPDX-License-Identifier: MIT
#include "logmanager/modifiers/time_stamp.h"

#include <atomic>
#include <cstring>

namespace boost::logging::detail {
namespace {

constexpr std::int64_t millisecondsPerSecond = 1000;

std::string withZeros(int _value, std::size_t _digits) {
  std::string text = std::to_string(_value);
  if (text.size() < _digits) text.insert(0, _digits - text.size(), '0');
  return text;
}

}  // namespace

TimeFormat::TimeFormat(const std::string& _format) {
  std::size_t place = 0;
  while (place < _format.size())
    pieces_.push_back(nextPiece(_format, place));
  std::size_t size = 0;
  for (const Piece& piece : pieces_) {
    if (piece.part == Part::millisecond) millisecondPlaces_.push_back(size);
    size += textOf(piece, {1000, 1, 1, 0, 0, 0, 0}).size();
  }
}

std::string TimeFormat::text(const platform::LocalTime& _time) const {
  std::string text;
  for (const Piece& piece : pieces_)
    text += textOf(piece, _time);
  return text;
}

TimeFormat::Piece TimeFormat::nextPiece(const std::string& _format, std::size_t& _place) {
  struct Placeholder {
    std::string_view text;
    Part part;
  };
  static constexpr Placeholder placeholders[] = {
      {"$yyyy", Part::year}, {"$MM", Part::month},  {"$dd", Part::day},         {"$hh", Part::hour},
      {"$mm", Part::minute}, {"$ss", Part::second}, {"$mss", Part::millisecond}};
  const std::string_view rest = std::string_view(_format).substr(_place);
  for (const Placeholder& placeholder : placeholders) {
    if (!rest.starts_with(placeholder.text)) continue;
    _place += placeholder.text.size();
    return {placeholder.part, {}};
  }
  // A literal goes up to the next dollar; one that begins no placeholder is part of it.
  const std::string_view literal = rest.substr(0, rest.find('$', 1));
  _place += literal.size();
  return {Part::literal, std::string(literal)};
}

std::string TimeFormat::textOf(const Piece& _piece, const platform::LocalTime& _time) {
  switch (_piece.part) {
    case Part::year:
      return withZeros(_time.year, 4);
    case Part::month:
      return withZeros(_time.month, 2);
    case Part::day:
      return withZeros(_time.day, 2);
    case Part::hour:
      return withZeros(_time.hour, 2);
    case Part::minute:
      return withZeros(_time.minute, 2);
    case Part::second:
      return withZeros(_time.second, 2);
    case Part::millisecond:
      return withZeros(_time.millisecond, 3);
    case Part::literal:
      break;
  }
  return _piece.literal;
}

std::uint64_t TimeStamp::nextId() {
  static constinit std::atomic<std::uint64_t> latest{0};
  return ++latest;
}

std::string_view TimeStamp::newText(std::int64_t _time, ThreadState::TimeText& _latest, std::string& _memory) const {
  std::int64_t millisecond = _time % millisecondsPerSecond;
  if (millisecond < 0) millisecond += millisecondsPerSecond;
  const std::int64_t second = (_time - millisecond) / millisecondsPerSecond;
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
  const platform::LocalTime time = platform::toLocalTime(_second * millisecondsPerSecond);
  const std::string text = format_.text(time);
  if (text.size() > sizeof(_latest.text) || time.year < 0 || time.year > 9999) return false;
  _latest.formatId = id_;
  _latest.second = _second;
  _latest.size = text.size();
  std::memcpy(_latest.text, text.data(), text.size());
  return true;
}

}  // namespace boost::logging::detail
