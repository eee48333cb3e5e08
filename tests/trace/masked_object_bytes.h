// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// The trace with the bytes of a string object, which one line of getCommonLogFilePath shows, replaced by <OBJECT>.
inline std::string maskedObjectBytes(std::string _trace) {
  const std::string before = "using default value => ";
  const std::string after = "\r\n<== Quillmark_logging::getCommonLogFilePath()";
  for (std::size_t at = _trace.find(before); at != std::string::npos; at = _trace.find(before, at)) {
    at += before.size();
    const std::size_t end = _trace.find(after, at);
    if (end == std::string::npos) break;
    _trace.replace(at, end - at, "<OBJECT>");
  }
  return _trace;
}

}  // namespace testsupport
