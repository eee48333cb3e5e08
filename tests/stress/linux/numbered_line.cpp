// SPDX-License-Identifier: MIT
#include "tests/stress/linux/numbered_line.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace stress {
namespace {

constexpr char begin = '@';
constexpr char separator = ',';
constexpr char end = '$';

// FNV-1a.
std::uint32_t checkOf(std::string_view _text) {
  std::uint32_t check = 2166136261U;
  for (const char c : _text)
    check = (check ^ static_cast<unsigned char>(c)) * 16777619U;
  return check;
}

// Takes a number and the character behind it off the text.
std::optional<std::uint32_t> takeNumber(std::string_view& _text, char _behind) {
  std::uint32_t number = 0;
  const auto [rest, error] = std::from_chars(_text.data(), _text.data() + _text.size(), number);
  const auto size = static_cast<std::size_t>(rest - _text.data());
  if (error != std::errc() || size >= _text.size() || *rest != _behind) return {};
  _text.remove_prefix(size + 1);
  return number;
}

// The line at the begin of the text, which is moved behind it.
std::optional<NumberedLine> takeLine(std::string_view& _text) {
  std::string_view rest = _text.substr(1);
  const auto writer = takeNumber(rest, separator);
  const auto number = writer ? takeNumber(rest, separator) : std::nullopt;
  const auto size = number ? takeNumber(rest, separator) : std::nullopt;
  if (!size || *size >= rest.size() || rest[*size] != separator) return {};
  const std::string_view checked = _text.substr(0, static_cast<std::size_t>(rest.data() - _text.data()) + *size);
  rest.remove_prefix(*size + 1);
  const auto check = takeNumber(rest, end);
  if (!check || *check != checkOf(checked)) return {};
  _text = rest;
  return NumberedLine{*writer, *number};
}

}  // namespace

std::string textOf(const NumberedLine& _line, std::size_t _fillerSize) {
  std::string text = begin + std::to_string(_line.writer) + separator + std::to_string(_line.number) + separator +
                     std::to_string(_fillerSize) + separator;
  for (std::size_t i = 0; i < _fillerSize; ++i)
    text += static_cast<char>('a' + (i + _line.writer + _line.number) % 26);
  return text + separator + std::to_string(checkOf(text)) + end;
}

Findings findIn(std::string_view _text) {
  Findings findings;
  for (std::size_t place = _text.find(begin); place != std::string_view::npos; place = _text.find(begin)) {
    _text.remove_prefix(place);
    if (const auto line = takeLine(_text)) {
      findings.whole.push_back(*line);
    } else {
      ++findings.torn;
      _text.remove_prefix(1);
    }
  }
  return findings;
}

std::int64_t countLinesOf(std::uint32_t _writer, std::string_view _text) {
  const std::vector<NumberedLine> lines = findIn(_text).whole;
  return std::count_if(lines.begin(), lines.end(),
                       [_writer](const NumberedLine& _line) { return _line.writer == _writer; });
}

}  // namespace stress
