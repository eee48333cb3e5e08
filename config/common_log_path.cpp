// SPDX-License-Identifier: MIT
#include "config/cfg_data_manager.h"
#include "config/log_root.h"
#include "platform/shell_folder.h"
#include "quillmark_logging.h"
#include "quillmark_logging_names.h"
#include "trace/trace_flags.h"
#include "trace/trace_line.h"

namespace Quillmark_logging {

bool getCommonLogFilePath(std::string& _path, const std::string& _ca) {
  traceLine("==> Quillmark_logging::getCommonLogFilePath() _ca=%s\r\n", _ca.c_str());
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): _ca may be the string that receives the path.
  const std::string ca = _ca;
  if (!platform::shellFolder(platform::ShellFolder::userAppData, _path)) {
    traceLine("<!= Quillmark_logging::getCommonLogFilePath() Failed to get CSIDL_APPDATA.\r\n");
    return false;
  }
  traceLine("--- Quillmark_logging::getCommonLogFilePath() _path=\"%s\" (CSIDL_APPDATA)\r\n", _path.c_str());
  CfgDataManager* const manager = CfgDataManager::getInstance(loadTimeTrace());
  std::string cfgFile;
  if (!manager->getQmrkCfgFilePath(cfgFile, ca, true)) {
    traceLine("<!= Quillmark_logging::getCommonLogFilePath() No valid configuration file was found for %s.\r\n",
              ca.c_str());
    return false;
  }
  if (!appendLogRoot(*manager, cfgFile, _path)) {
    // The line is required to print the string object instead of its text.
    const std::string defaultRoot = DEFAULT_COMMON_LOG_FILE_ROOT;
    traceLine(
        "-!- Quillmark_logging::getCommonLogFilePath() WARNING: Failed to get log file root from configuration file, "
        "using default value => %s\r\n",
        objectBytes(defaultRoot).c_str());
  }
  traceLine("<== Quillmark_logging::getCommonLogFilePath() _path=\"%s\"\r\n", _path.c_str());
  return true;
}

}  // namespace Quillmark_logging
