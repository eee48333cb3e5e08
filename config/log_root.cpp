// SPDX-License-Identifier: MIT
#include "config/log_root.h"

#include "platform/shell_folder.h"
#include "quillmark_logging_names.h"

namespace Quillmark_logging {

bool appendLogRoot(CfgDataManager& _manager, const std::string& _cfgFile, std::string& _path) {
  std::string root = DEFAULT_COMMON_LOG_FILE_ROOT;
  const bool isConfigured = _manager.getCfgValue(_cfgFile, COMMON_LOG_FILE_ROOT, root);
  // The backslash is always put, also when the folder ends in one: required.
  _path += "\\" + root;
  return isConfigured;
}

}  // namespace Quillmark_logging

bool CfgDataManager::getLogRootPath(std::string& _path, const std::string& _ca) {
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): _ca may be the string that receives the path.
  const std::string ca = _ca;
  if (!platform::shellFolder(platform::ShellFolder::userAppData, _path)) return false;
  CfgDataManager* const manager = getInstance(tracing());
  std::string cfgFile;
  if (!manager->getQmrkCfgFilePath(cfgFile, ca, true)) return false;
  Quillmark_logging::appendLogRoot(*manager, cfgFile, _path);
  return true;
}
