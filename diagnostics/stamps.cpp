// SPDX-License-Identifier: MIT
#include "diagnostics/stamp_text.h"
#include "platform/process.h"
#include "quillmark_logging.h"

namespace Quillmark_logging {

std::string getProcessId(bool _formatted) { return idStamp("getProcessId", platform::processId(), _formatted); }

std::string getFormattedProcessId() {
  traceLine("<=> Quillmark_logging::getFormattedProcessId()\r\n");
  return getProcessId(true);
}

std::string getThreadId(bool _formatted) { return idStamp("getThreadId", platform::threadId(), _formatted); }

std::string getFormattedThreadId() {
  traceLine("<=> Quillmark_logging::getFormattedThreadId()\r\n");
  return getThreadId(true);
}

std::string location(const char* _file, int _line, const char* _function) {
  return locationStamp(_file, _line, _function);
}

}  // namespace Quillmark_logging
