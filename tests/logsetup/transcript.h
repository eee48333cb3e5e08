// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/system_version.h"
#include "tests/support/config_sandbox.h"
#include "tests/trace/masked_object_bytes.h"

namespace testsupport {

/// The trace without the lines about folders above the sandbox, which depend on the machine. The names of the sandbox
/// are already masked, so its folders begin with "<".
inline std::string withoutOuterFolders(std::string _trace) {
  const std::string begin = "==> Quillmark_logging::checkIfFileDirectoryExists() _fileWithPath=";
  const std::string end = "<== Quillmark_logging::checkIfFileDirectoryExists() retValue=true\r\n";
  for (std::size_t at = _trace.find(begin); at != std::string::npos; at = _trace.find(begin, at)) {
    if (_trace[at + begin.size()] == '<') {
      at += begin.size();
    } else {
      _trace.erase(at, _trace.find(end, at) + end.size() - at);
    }
  }
  return _trace;
}

/// A trace in the form of the goldens. They show a system that cannot be described; if the running one can be, replaces
/// the line that says so.
inline std::string transcript(const ConfigSandbox& _sandbox, const std::string& _trace) {
  const std::string masked = withoutOuterFolders(_sandbox.masked(maskedObjectBytes(_trace)));
  platform::VersionBlock block;
  if (!platform::queryVersion(platform::VersionQuery::extended, block)) return masked;
  const std::string failed = "<!= Quillmark_logging::writeOSInfo() ERROR: Failed to get OS information.";
  const std::string written = "<== Quillmark_logging::writeOSInfo() OS information is written to file ";
  std::string text = masked;
  for (std::size_t at = text.find(written); at != std::string::npos; at = text.find(written, at)) {
    text.replace(at, text.find("\r\n", at) - at, failed);
  }
  return text;
}

}  // namespace testsupport
