// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// Of a trace, the lines that name a function, given as "Quillmark_logging::name()".
inline std::string linesOf(const std::string& _function, const std::string& _trace) {
  std::string lines;
  std::size_t begin = 0;
  for (auto end = _trace.find('\n'); end != std::string::npos; end = _trace.find('\n', begin)) {
    const std::string line = _trace.substr(begin, end + 1 - begin);
    if (line.find(_function) != std::string::npos) lines += line;
    begin = end + 1;
  }
  return lines;
}

}  // namespace testsupport
