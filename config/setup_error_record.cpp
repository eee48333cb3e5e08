// SPDX-License-Identifier: MIT
#include "config/setup_error_record.h"

#include "config/qmrk_info_file.h"
#include "quillmark_logging.h"
#include "quillmark_logging_names.h"
#include "trace/folder_creation.h"
#include "trace/trace_line.h"

namespace Quillmark_logging {
namespace {

std::string reason(int _error, const std::string& _ca) {
  if (_error == faultyPermissions) return "Faulty file permissions. ";
  if (_error != invalidConfiguration) return "Unspecified error. ";
  std::string text = "Invalid of missing configuration file for " + _ca + ".";
  if (_ca != GENERIC_CA) return text;
  return text +
         " (could also be the REDIRECT_CA_NR variable that's pointing at an invalid or missing configuration file). ";
}

}  // namespace

std::string errorInfoText(int _error, const std::string& _ca, const std::string& _caller, const std::string& _msg) {
  return reason(_error, _ca) + _msg + " [Called by " + (_caller.empty() ? "<Internal>" : _caller) + "]";
}

bool writeQmrkErrorInfo(int _error, const std::string& _ca, const std::string& _caller, const std::string& _msg) {
  traceLine("==> Quillmark_logging::writeQmrkErrorInfo() _msg=%s\r\n", _msg.c_str());
  std::string folder;
  if (!getCommonLogFilePath(folder, GENERIC_CA)) return false;
  const std::string file = folder + ERROR_INFO_FILE_NAME;
  if (!checkIfFileDirectoryExists(folder)) {
    traceLine("--- Quillmark_logging::writeQmrkErrorInfo() Creating directory structure: %s\r\n", folder.c_str());
    if (!createDirectory(folder)) {
      traceLine("<!= Quillmark_logging::writeQmrkErrorInfo() ERROR: Failed to create %s\r\n", folder.c_str());
      return false;
    }
  }
  const RecordResult result = appendRecord(file, errorInfoText(_error, _ca, _caller, _msg));
  if (result != RecordResult::written) {
    traceLine("<!= Quillmark_logging::writeQmrkErrorInfo() ERROR: Failed to open file %s\r\n", file.c_str());
  }
  return result == RecordResult::written;
}

}  // namespace Quillmark_logging
