// SPDX-License-Identifier: MIT
#include "config/cfg_lookup.h"

#include "config/cfg_data_manager.h"
#include "trace/trace_flags.h"
#include "trace/trace_line.h"

namespace Quillmark_logging {

bool getCfgValue(const std::string& _key, std::string& _value, const std::string& _ca) {
  traceLine("==> Quillmark_logging::getCfgValue() _key=%s, _ca=%s\r\n", _key.c_str(), _ca.c_str());
  CfgDataManager* const manager = CfgDataManager::getInstance(loadTimeTrace());
  std::string path;
  if (!manager->getQmrkCfgFilePath(path, _ca, true)) {
    traceLine("<!= Quillmark_logging::getCfgValue() Failed to get configuration file name.\r\n");
    return false;
  }
  if (!manager->getCfgValue(path, _key, _value)) {
    traceLine("<!= Quillmark_logging::getCfgValue() No match found for _key=%s\r\n", _key.c_str());
    return false;
  }
  traceLine("<== Quillmark_logging::getCfgValue() Match found; _key=%s, _value=%s\r\n", _key.c_str(), _value.c_str());
  return true;
}

}  // namespace Quillmark_logging
