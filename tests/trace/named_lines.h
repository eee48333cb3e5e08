// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// Of a text, the lines that name something: a function of a trace, as "Quillmark_logging::name()", or a log.
inline std::string linesOf(const std::string& _name, const std::string& _text) {
  std::string lines;
  std::size_t begin = 0;
  for (auto end = _text.find('\n'); end != std::string::npos; end = _text.find('\n', begin)) {
    const std::string line = _text.substr(begin, end + 1 - begin);
    if (line.find(_name) != std::string::npos) lines += line;
    begin = end + 1;
  }
  return lines;
}

}  // namespace testsupport
