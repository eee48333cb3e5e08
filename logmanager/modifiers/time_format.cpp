// SPDX-License-Identifier: MIT
#include "logmanager/modifiers/time_format.h"

#include <string_view>

namespace boost::logging::detail {
namespace {

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
  static constexpr Placeholder PLACEHOLDERS[] = {
      {"$yyyy", Part::year}, {"$MM", Part::month},  {"$dd", Part::day},         {"$hh", Part::hour},
      {"$mm", Part::minute}, {"$ss", Part::second}, {"$mss", Part::millisecond}};
  const std::string_view rest = std::string_view(_format).substr(_place);
  for (const Placeholder& placeholder : PLACEHOLDERS) {
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

}  // namespace boost::logging::detail
