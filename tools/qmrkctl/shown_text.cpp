// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/shown_text.h"

#include <array>

namespace qmrkctl {
namespace {

// The smallest character that needs so many bytes; shorter ones in a longer form are not valid.
constexpr std::array<char32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};

std::size_t lengthByFirstByte(unsigned char _first) {
  if (_first < 0x80) return 1;
  if (_first >= 0xC2 && _first < 0xE0) return 2;
  if (_first >= 0xE0 && _first < 0xF0) return 3;
  if (_first >= 0xF0 && _first < 0xF5) return 4;
  return 0;
}

// The character of so many bytes; an impossible one when a byte does not continue it.
char32_t decode(std::string_view _bytes) {
  constexpr char32_t impossible = 0xFFFFFFFF;
  const auto first = static_cast<unsigned char>(_bytes[0]);
  char32_t character = _bytes.size() == 1 ? first : first & (0x7FU >> _bytes.size());
  for (const char byte : _bytes.substr(1)) {
    const auto bits = static_cast<unsigned char>(byte);
    if ((bits & 0xC0U) != 0x80U) return impossible;
    character = (character << 6U) | (bits & 0x3FU);
  }
  return character;
}

bool steersTerminal(char32_t _c) {
  return _c < 0x20 || (_c >= 0x7F && _c < 0xA0) || (_c >= 0x200B && _c <= 0x200F) || (_c >= 0x2028 && _c <= 0x202E) ||
         (_c >= 0x2060 && _c <= 0x206F) || _c == 0xFEFF;
}

void appendEscaped(std::string& _text, std::string_view _bytes) {
  constexpr char digits[] = "0123456789abcdef";
  for (const char byte : _bytes) {
    if (byte == '\n') {
      _text += "\\n";
    } else if (byte == '\r') {
      _text += "\\r";
    } else if (byte == '\t') {
      _text += "\\t";
    } else {
      const auto bits = static_cast<unsigned char>(byte);
      _text += {'\\', 'x', digits[bits >> 4U], digits[bits & 0xFU]};
    }
  }
}

}  // namespace

std::size_t utf8Length(std::string_view _text) {
  if (_text.empty()) return 0;
  const std::size_t length = lengthByFirstByte(static_cast<unsigned char>(_text[0]));
  if (length == 0 || length > _text.size()) return 0;
  const char32_t character = decode(_text.substr(0, length));
  const bool isSurrogate = character >= 0xD800 && character < 0xE000;
  return character < smallest[length] || character > 0x10FFFF || isSurrogate ? 0 : length;
}

std::string shown(std::string_view _text) {
  std::string text;
  text.reserve(_text.size());
  while (!_text.empty()) {
    const std::size_t length = utf8Length(_text);
    const std::string_view bytes = _text.substr(0, length == 0 ? 1 : length);
    if (length == 0 || steersTerminal(decode(bytes))) {
      appendEscaped(text, bytes);
    } else {
      text += bytes;
    }
    _text.remove_prefix(bytes.size());
  }
  return text;
}

}  // namespace qmrkctl
