// SPDX-License-Identifier: MIT
#include "control/wait_result_line.h"

#include "platform/handle.h"

namespace Quillmark_logging {
namespace {

const char* nameOf(std::uint32_t _result) {
  switch (_result) {
    case platform::waitObject:
      return "WAIT_OBJECT_0";
    case platform::waitAbandoned:
      return "WAIT_ABANDONED";
    case platform::waitTimeout:
      return "WAIT_TIMEOUT";
    case platform::waitFailed:
      return "WAIT_FAILED";
    default:
      return "default";
  }
}

}  // namespace

std::string waitResultLine(std::uint32_t _result) {
  return std::string("--- LogEventHandler::Listen4EventThread() ") + nameOf(_result) + " (" + std::to_string(_result) +
         ")";
}

}  // namespace Quillmark_logging
