// SPDX-License-Identifier: MIT
#include "config/cfg_path_rules.h"

#include "config/cfg_file_name.h"
#include "config/text_replacement.h"
#include "quillmark_logging_names.h"

namespace Quillmark_logging {
namespace {

// How the generic CA stands in a file name.
constexpr char genericMarker[] = "_GE.";

}  // namespace

std::string cfgFilePath(CfgFileKind _kind, const std::string& _base, const std::string& _ca) {
  const bool isCfg = _kind == CfgFileKind::cfg;
  return _base + (isCfg ? CFG_FOLDER : INIT_FOLDER) + cfgFileName(isCfg ? CFG_FILE_NAME : INIT_FILE_NAME, _ca);
}

std::string genericCfgPath(const std::string& _base) { return _base + CFG_FOLDER + GENERIC_CFG_FILE_NAME; }

std::string redirectedPath(CfgFileKind _kind, const std::string& _genericPath, const std::string& _redirectCa) {
  std::string path = replaceAll(_genericPath, genericMarker, "_" + _redirectCa + ".");
  // Changes a folder whose name has ".cfg" in it as well: required.
  return _kind == CfgFileKind::init ? replaceAll(path, ".cfg", ".init") : path;
}

}  // namespace Quillmark_logging
