// SPDX-License-Identifier: MIT
#include "tools/status/valid_utf8.h"

#include <cstddef>

namespace qmrkctl {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

bool isBetween(std::string_view _text, std::size_t _place, unsigned char _lowest, unsigned char _highest) {
  if (_place >= _text.size()) return false;
  const auto byte = static_cast<unsigned char>(_text[_place]);
  return byte >= _lowest && byte <= _highest;
}

bool isContinued(std::string_view _text, std::size_t _from, std::size_t _to) {
  for (std::size_t place = _from; place < _to; ++place) {
    if (!isBetween(_text, place, 0x80, 0xBF)) return false;
  }
  return true;
}

// The first continuation byte keeps overlong forms, surrogates and too large numbers out.
std::size_t lengthOfThree(std::string_view _text) {
  const unsigned char lowest = _text[0] == '\xE0' ? 0xA0 : 0x80;
  const unsigned char highest = _text[0] == '\xED' ? 0x9F : 0xBF;
  return isBetween(_text, 1, lowest, highest) && isContinued(_text, 2, 3) ? 3 : 0;
}

std::size_t lengthOfFour(std::string_view _text) {
  const unsigned char lowest = _text[0] == '\xF0' ? 0x90 : 0x80;
  const unsigned char highest = _text[0] == '\xF4' ? 0x8F : 0xBF;
  return isBetween(_text, 1, lowest, highest) && isContinued(_text, 2, 4) ? 4 : 0;
}

// How many bytes the valid sequence at the beginning has; 0 when there is none.
std::size_t sequenceLength(std::string_view _text) {
  if (isBetween(_text, 0, 0x00, 0x7F)) return 1;
  if (isBetween(_text, 0, 0xC2, 0xDF)) return isContinued(_text, 1, 2) ? 2 : 0;
  if (isBetween(_text, 0, 0xE0, 0xEF)) return lengthOfThree(_text);
  return isBetween(_text, 0, 0xF0, 0xF4) ? lengthOfFour(_text) : 0;
}

}  // namespace

std::string validUtf8(std::string_view _text) {
  std::string valid;
  while (!_text.empty()) {
    const std::size_t length = sequenceLength(_text);
    valid += length == 0 ? replacement : _text.substr(0, length);
    _text.remove_prefix(length == 0 ? 1 : length);
  }
  return valid;
}

}  // namespace qmrkctl
