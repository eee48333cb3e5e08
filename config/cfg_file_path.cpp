// SPDX-License-Identifier: MIT
#include <exception>

#include "config/cfg_data_manager.h"
#include "config/cfg_path_rules.h"
#include "config/found_configuration.h"
#include "platform/shell_folder.h"
#include "quillmark_logging_names.h"
#include "trace/trace_line.h"

using Quillmark_logging::boolName;
using Quillmark_logging::CfgFileKind;
using Quillmark_logging::cfgFilePath;
using Quillmark_logging::redirectedPath;
using Quillmark_logging::traceLineIf;

namespace {

platform::ShellFolder baseOf(CfgFileKind _kind) {
  return _kind == CfgFileKind::cfg ? platform::ShellFolder::commonProgramFiles : platform::ShellFolder::commonAppData;
}

}  // namespace

bool CfgDataManager::getQmrkCfgFilePath(std::string& _path, const std::string& _ca, bool _cfg) {
  traceLineIf(tracing(), "==> CfgDataManager::getQmrkCfgFilePath() _ca=\"%s\", _cfg=%s\r\n", _ca.c_str(),
              boolName(_cfg));
  try {
    const std::string ca = toUpperCopy(_ca);
    const CfgFileKind kind = _cfg ? CfgFileKind::cfg : CfgFileKind::init;
    if (!platform::shellFolder(baseOf(kind), _path)) {
      traceLineIf(tracing(), "<!= CfgDataManager::getQmrkCfgFilePath() SHGetFolderpath() failed!\r\n");
      return false;
    }
    if (ca.empty()) {
      traceLineIf(tracing(), "<!= CfgDataManager::getQmrkCfgFilePath() No valid CA number was passed as argument.\r\n");
      return false;
    }
    _path = cfgFilePath(kind, _path, ca);
    if (ca == Quillmark_logging::GENERIC_CA) redirectGeneric(_path, _cfg);
    if (!_cfg) Quillmark_logging::FoundConfiguration::noteInitPath(_path);
  } catch (const std::exception&) {
    return false;
  }
  traceLineIf(tracing(), "<== CfgDataManager::getQmrkCfgFilePath() _path=\"%s\"\r\n", _path.c_str());
  return true;
}

void CfgDataManager::redirectGeneric(std::string& _path, bool _cfg) {
  const std::string genericPath = _path;
  std::string base;
  if (!_cfg && platform::shellFolder(baseOf(CfgFileKind::cfg), base)) {
    _path = Quillmark_logging::genericCfgPath(base);
  }
  std::string redirectCa;
  if (!getCfgValue(_path, Quillmark_logging::REDIRECT_CA_NR, redirectCa)) {
    // A request for the .init file is left with the .cfg path here: required.
    traceLineIf(tracing(), "<!= CfgDataManager::getQmrkCfgFilePath() Redirection failed...\r\n");
    return;
  }
  _path = redirectedPath(_cfg ? CfgFileKind::cfg : CfgFileKind::init, genericPath, redirectCa);
  traceLineIf(tracing(), "--- CfgDataManager::getQmrkCfgFilePath() Called with CA GE, redirecting from %s to %s\r\n",
              genericPath.c_str(), _path.c_str());
}
