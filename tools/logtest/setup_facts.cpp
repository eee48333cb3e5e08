// SPDX-License-Identifier: MIT
#include "tools/logtest/setup_facts.h"

#include "config/cfg_data_manager.h"
#include "platform/access.h"
#include "quillmark_logging_names.h"

namespace logtest {
namespace {

std::string cfgFileOf(const std::string& _ca) {
  std::string path;
  return CfgDataManager::getInstance(false)->getQmrkCfgFilePath(path, _ca, true) ? path : "";
}

std::optional<std::string> valueOf(const std::string& _cfgFile, const std::string& _key) {
  std::string value;
  if (!CfgDataManager::getInstance(false)->getCfgValue(_cfgFile, _key, value)) return std::nullopt;
  return value;
}

std::optional<std::string> logFolderOf(const std::string& _ca) {
  std::string folder;
  if (!CfgDataManager::getInstance(false)->getLogRootPath(folder, _ca)) return std::nullopt;
  return folder;
}

void findCfgFile(SetupFacts& _facts) {
  _facts.cfgFile = cfgFileOf(_facts.ca);
  if (_facts.cfgFile.empty()) return;
  if (!platform::isAccessible(_facts.cfgFile, platform::Access::exists)) {
    const std::string generic = cfgFileOf(Quillmark_logging::GENERIC_CA);
    _facts.fellBack = generic != _facts.cfgFile;
    _facts.cfgFile = generic;
  }
  _facts.cfgExists = platform::isAccessible(_facts.cfgFile, platform::Access::exists);
  _facts.cfgIsReadable = platform::isAccessible(_facts.cfgFile, platform::Access::read);
}

}  // namespace

SetupFacts gatherSetupFacts(const std::string& _ca) {
  SetupFacts facts;
  facts.ca = _ca;
  findCfgFile(facts);
  facts.logState = valueOf(facts.cfgFile, Quillmark_logging::LOG_STATE);
  facts.logFileName = valueOf(facts.cfgFile, Quillmark_logging::COMMON_LOG_FILE_NAME);
  facts.logFolder = logFolderOf(facts.fellBack ? Quillmark_logging::GENERIC_CA : _ca);
  facts.logFolderExists = facts.logFolder && platform::isAccessible(*facts.logFolder, platform::Access::exists);
  if (const auto folder = logFolderOf(Quillmark_logging::GENERIC_CA)) {
    const std::string records = *folder + Quillmark_logging::ERROR_INFO_FILE_NAME;
    if (platform::isAccessible(records, platform::Access::exists)) facts.errorRecords = records;
  }
  return facts;
}

}  // namespace logtest
