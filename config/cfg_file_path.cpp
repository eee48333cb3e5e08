// SPDX-License-Identifier: MIT
#include <exception>

#include "config/cfg_data_manager.h"
#include "config/cfg_file_name.h"
#include "config/text_replacement.h"
#include "platform/shell_folder.h"
#include "quillmark_logging_names.h"
#include "trace/trace_line.h"

using Quillmark_logging::boolName;
using Quillmark_logging::cfgFileName;
using Quillmark_logging::replaceAll;
using Quillmark_logging::traceLineIf;

namespace {

// How the generic CA stands in a file name.
constexpr char genericMarker[] = "_GE.";

// What differs between the kinds of files.
struct FileKind {
  platform::ShellFolder base;
  const char* folder;
  const char* name;
};

constexpr FileKind cfgKind = {platform::ShellFolder::commonProgramFiles, Quillmark_logging::CFG_FOLDER,
                              Quillmark_logging::CFG_FILE_NAME};
constexpr FileKind initKind = {platform::ShellFolder::commonAppData, Quillmark_logging::INIT_FOLDER,
                               Quillmark_logging::INIT_FILE_NAME};

}  // namespace

bool CfgDataManager::getQmrkCfgFilePath(std::string& _path, const std::string& _ca, bool _cfg) {
  traceLineIf(tracing(), "==> CfgDataManager::getQmrkCfgFilePath() _ca=\"%s\", _cfg=%s\r\n", _ca.c_str(),
              boolName(_cfg));
  try {
    const std::string ca = toUpperCopy(_ca);
    const FileKind& kind = _cfg ? cfgKind : initKind;
    if (!platform::shellFolder(kind.base, _path)) {
      traceLineIf(tracing(), "<!= CfgDataManager::getQmrkCfgFilePath() SHGetFolderpath() failed!\r\n");
      return false;
    }
    if (ca.empty()) {
      traceLineIf(tracing(), "<!= CfgDataManager::getQmrkCfgFilePath() No valid CA number was passed as argument.\r\n");
      return false;
    }
    _path += kind.folder + cfgFileName(kind.name, ca);
    if (ca == Quillmark_logging::GENERIC_CA) redirectGeneric(_path, _cfg);
  } catch (const std::exception&) {
    return false;
  }
  traceLineIf(tracing(), "<== CfgDataManager::getQmrkCfgFilePath() _path=\"%s\"\r\n", _path.c_str());
  return true;
}

void CfgDataManager::redirectGeneric(std::string& _path, bool _cfg) {
  const std::string genericPath = _path;
  std::string base;
  if (!_cfg && platform::shellFolder(cfgKind.base, base)) {
    _path = base + cfgKind.folder + Quillmark_logging::GENERIC_CFG_FILE_NAME;
  }
  std::string redirectCa;
  if (!getCfgValue(_path, Quillmark_logging::REDIRECT_CA_NR, redirectCa)) {
    // A request for the .init file is left with the .cfg path here: required.
    traceLineIf(tracing(), "<!= CfgDataManager::getQmrkCfgFilePath() Redirection failed...\r\n");
    return;
  }
  if (!_cfg) _path = genericPath;
  _path = replaceAll(_path, genericMarker, "_" + redirectCa + ".");
  if (!_cfg) _path = replaceAll(_path, ".cfg", ".init");
  traceLineIf(tracing(), "--- CfgDataManager::getQmrkCfgFilePath() Called with CA GE, redirecting from %s to %s\r\n",
              genericPath.c_str(), _path.c_str());
}
