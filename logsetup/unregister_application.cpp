// SPDX-License-Identifier: MIT
#include "quillmark_logging.h"
#include "trace/trace_line.h"

namespace Quillmark_logging {

bool unregisterApplication(const std::string& _appName) {
  traceLine("<=> Quillmark_logging::unregisterApplication() _appName=%s\r\n", _appName.c_str());
  return true;
}

bool unregisterApplication(const std::string& _appName, const std::string& /*_ca*/) {
  traceLine("<=> Quillmark_logging::unregisterApplication() _appName=%s\r\n", _appName.c_str());
  return true;
}

}  // namespace Quillmark_logging
