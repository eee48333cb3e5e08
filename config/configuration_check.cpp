// SPDX-License-Identifier: MIT
#include "config/configuration_check.h"

#include "config/auto_generate_cfg.h"
#include "config/cfg_data_manager.h"
#include "config/found_configuration.h"
#include "config/setup_error_record.h"
#include "platform/access.h"
#include "platform/text_file.h"
#include "quillmark_logging_names.h"
#include "trace/trace_flags.h"
#include "trace/trace_line.h"

// The lines that tell whether a file exists and can be read end in a bare line feed: required.

namespace Quillmark_logging {
namespace {

bool exists(const std::string& _path) { return platform::isAccessible(_path, platform::Access::exists); }

bool checkExistingFile(const std::string& _path, const std::string& _ca, const std::string& _caller) {
  traceLine("--- Quillmark_logging::checkSpecifiedConfiguration() File %s exists\n", _path.c_str());
  if (platform::isAccessible(_path, platform::Access::read) && !platform::isTooLargeToRead(_path)) return true;
  traceLine("<!= Quillmark_logging::checkSpecifiedConfiguration() File %s does not have read permission\n",
            _path.c_str());
  writeQmrkErrorInfo(faultyPermissions, _ca, _caller, _path + " does not have read permission.");
  return false;
}

bool generateGenericFile(const std::string& _path) {
  traceLine("-!- Quillmark_logging::checkSpecifiedConfiguration() ERROR: \"%s\" wasn't found, generating a file...\r\n",
            _path.c_str());
  const std::string folder = _path.substr(0, _path.rfind('\\'));
  AutoGenerateCfg generator(loadTimeTrace());
  generator.setCfgPath(folder);
  if (!generator.generateGenericCfgFile()) {
    traceLine("<!= Quillmark_logging::checkSpecifiedConfiguration() ERROR: Failed to generate \"%s\".\r\n",
              _path.c_str());
    return false;
  }
  traceLine("<== Quillmark_logging::checkSpecifiedConfiguration() New \"%s\" generated.\r\n", _path.c_str());
  FoundConfiguration::noteGenerated();
  setFreeFunctionTrace(CfgDataManager::getInstance(false)->getCfgFlag(QMRK_TRACE, GENERIC_CA));
  generator.showDirContent(folder, "");
  return true;
}

// For a CA whose file is missing after the fall-back; the generic one is the only such CA.
bool handleMissingFile(const std::string& _path, const std::string& _ca, const std::string& _caller) {
  if (_ca == GENERIC_CA) return generateGenericFile(_path);
  traceLine("<!= Quillmark_logging::checkSpecifiedConfiguration() File %s does not exist.\n", _path.c_str());
  writeQmrkErrorInfo(invalidConfiguration, _ca, _caller, "");
  return false;
}

}  // namespace

bool checkSpecifiedConfiguration(std::string& _ca, const std::string& _caller) {
  CfgDataManager* const manager = CfgDataManager::getInstance(loadTimeTrace());
  std::string path;
  if (!manager->getQmrkCfgFilePath(path, _ca, true)) {
    traceLine(
        "<!= Quillmark_logging::checkSpecifiedConfiguration() Failed to retrieve configuration file path for %s.\r\n",
        _ca.c_str());
    return false;
  }
  FoundConfiguration::noteCheckedPath(path);
  if (exists(path)) return checkExistingFile(path, _ca, _caller);
  traceLine(
      "-!- Quillmark_logging::checkSpecifiedConfiguration() File %s does not exist. Redirecting to GE "
      "configuration.\n",
      path.c_str());
  writeQmrkErrorInfo(invalidConfiguration, _ca, _caller,
                     " Redirecting to configuration file appointed by qmrk_logging_GE.cfg instead.");
  if (!manager->getQmrkCfgFilePath(path, GENERIC_CA, true)) return false;
  _ca = GENERIC_CA;
  FoundConfiguration::noteCheckedPath(path);
  if (exists(path)) return checkExistingFile(path, _ca, _caller);
  return handleMissingFile(path, _ca, _caller);
}

}  // namespace Quillmark_logging
