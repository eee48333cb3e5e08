// SPDX-License-Identifier: MIT
#include "platform/win32/line_ends.h"

#include <algorithm>

namespace platform {

std::string withCarriageReturns(std::string_view _text) {
  std::string translated;
  translated.reserve(_text.size() + static_cast<std::size_t>(std::count(_text.begin(), _text.end(), '\n')));
  for (const char c : _text) {
    if (c == '\n') translated += '\r';
    translated += c;
  }
  return translated;
}

std::size_t sizeBeforeTranslation(std::string_view _text, std::size_t _written) {
  std::size_t translated = 0;
  for (std::size_t i = 0; i < _text.size(); ++i) {
    translated += _text[i] == '\n' ? 2 : 1;
    if (translated > _written) return i;
  }
  return _text.size();
}

}  // namespace platform
