// SPDX-License-Identifier: MIT
#include "config/text_replacement.h"

namespace Quillmark_logging {

std::string replaceAll(const std::string& _text, const std::string& _from, const std::string& _to) {
  std::string result;
  std::size_t begin = 0;
  for (std::size_t found = _text.find(_from); found != std::string::npos; found = _text.find(_from, begin)) {
    result.append(_text, begin, found - begin).append(_to);
    begin = found + _from.size();
  }
  return result.append(_text, begin);
}

}  // namespace Quillmark_logging
