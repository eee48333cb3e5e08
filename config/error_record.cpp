// SPDX-License-Identifier: MIT
#include "config/error_record.h"

#include "config/cfg_data_manager.h"
#include "config/record_file.h"
#include "platform/access.h"
#include "platform/shell_folder.h"
#include "quillmark_logging_names.h"

std::string errorRecordText(const std::string& _ca, const std::string& _text, const std::string& _caller) {
  const std::string record = _text + " [" + _ca + "] ";
  return _caller.empty() ? record : record + "[Called by " + _caller + "]";
}

bool CfgDataManager::writeErrorRecord(const std::string& _ca, const std::string& _text, const std::string& _caller) {
  std::string root;
  if (!getLogRootPath(root, _ca)) return false;
  const std::string file = root + Quillmark_logging::ERROR_INFO_FILE_NAME;
  if (platform::isAccessible(file, platform::Access::exists) &&
      !platform::isAccessible(file, platform::Access::write)) {
    return false;
  }
  return appendRecord(file, errorRecordText(_ca, _text, _caller)) == RecordResult::written;
}

bool CfgDataManager::getLogRootPath(std::string& _path, const std::string& _ca) {
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): _ca may be the string that receives the path.
  const std::string ca = _ca;
  if (!platform::shellFolder(platform::ShellFolder::userAppData, _path)) return false;
  CfgDataManager* const manager = getInstance(tracing());
  std::string cfgFile;
  if (!manager->getQmrkCfgFilePath(cfgFile, ca, true)) return false;
  std::string root = Quillmark_logging::DEFAULT_COMMON_LOG_FILE_ROOT;
  manager->getCfgValue(cfgFile, Quillmark_logging::COMMON_LOG_FILE_ROOT, root);
  // The backslash is always put, also when the folder ends in one: required.
  _path += "\\" + root;
  return true;
}
