// SPDX-License-Identifier: MIT
#include "trace/folder_step.h"

#include "trace/trace_line.h"

namespace Quillmark_logging {

bool folderStepResult(const std::string& _step, bool _created, platform::ErrorCode _error, bool _resultSoFar) {
  if (_created) {
    traceLine("--- Quillmark_logging::createDirectory() Directory %s succesfully created.\r\n", _step.c_str());
    return true;
  }
  if (_error == platform::errorAlreadyExists) {
    traceLine(
        "-!- Quillmark_logging::createDirectory() ERROR: GetLastError() returned %d. Requested directory already "
        "exists.\r\n",
        static_cast<int>(_error));
    return true;
  }
  if (_error == platform::noError) return _resultSoFar;
  traceLine(
      "-!- Quillmark_logging::createDirectory() ERROR: GetLastError() returned %d. Failed to create requested "
      "directory.\r\n",
      static_cast<int>(_error));
  return false;
}

}  // namespace Quillmark_logging
