// SPDX-License-Identifier: MIT
#include "config/auto_generate_cfg.h"

#include <algorithm>
#include <cstdio>

#include "config/generic_cfg_text.h"
#include "platform/access.h"
#include "platform/native_path.h"
#include "platform/text_file.h"
#include "quillmark_logging_names.h"
#include "trace/trace_line.h"

using Quillmark_logging::traceLineIf;

namespace {

// A file that was begun only would be taken for a generic one that names no CA, at every start from now on.
bool writeWhole(const std::string& _path, const std::string& _text) {
  {
    platform::TextWriter file(_path, platform::TextWriter::Mode::truncate);
    if (!file.isOpen()) return false;
    if (file.write(_text)) return true;
  }
  std::remove(platform::nativePath(_path).c_str());
  return false;
}

}  // namespace

AutoGenerateCfg::AutoGenerateCfg(bool _trace)
    : fileName_(Quillmark_logging::GENERIC_CFG_FILE_NAME), customerAdaptation_("CA00"), trace_(_trace) {}

bool AutoGenerateCfg::setCfgPath(const std::string& _path) {
  traceLineIf(trace_, "==> AutoGenerateCfg::setCfgPath() _path=\"%s\"\r\n", _path.c_str());
  cfgPath_ = _path;
  if (!platform::isAccessible(cfgPath_, platform::Access::exists)) {
    traceLineIf(trace_, "<!= AutoGenerateCfg::setCfgPath() ERROR: Path \"%s\" does not exist.\r\n", cfgPath_.c_str());
    return false;
  }
  if (!platform::isAccessible(cfgPath_, platform::Access::readWrite)) {
    traceLineIf(trace_,
                "<!= AutoGenerateCfg::setCfgPath() Path \"%s\" found & BUT it doesn't has read/write permission.\r\n",
                cfgPath_.c_str());
    return false;
  }
  traceLineIf(trace_, "<== AutoGenerateCfg::setCfgPath() Path \"%s\" found & it has read/write permission.\r\n",
              cfgPath_.c_str());
  return true;
}

bool AutoGenerateCfg::generateGenericCfgFile() {
  traceLineIf(trace_, "==>  AutoGenerateCfg::generateGenericCfgFile()\r\n");
  if (cfgPath_.empty() || !getCA()) {
    traceLineIf(trace_,
                "<!=  AutoGenerateCfg::generateGenericCfgFile() Failed to generate configuration file \"%s\", path is "
                "not set/valid.\r\n",
                fileName_.c_str());
    return false;
  }
  const std::string path = cfgPath_ + "\\" + fileName_;
  if (!writeWhole(path, genericCfgText(customerAdaptation_))) {
    traceLineIf(trace_, "<!=  AutoGenerateCfg::generateGenericCfgFile() ERROR: Failed to open file \"%s\"\r\n",
                path.c_str());
    return false;
  }
  traceLineIf(trace_,
              "<==  AutoGenerateCfg::generateGenericCfgFile() Configuration file \"%s\" successfully generated.\r\n",
              path.c_str());
  return true;
}

bool AutoGenerateCfg::getCA() {
  traceLineIf(trace_, "==> AutoGenerateCfg::getCA()\r\n");
  if (dcMap_.empty() && !traverseDirectory(cfgPath_, "")) {
    traceLineIf(trace_, "<== AutoGenerateCfg::getCA() dcMap is empty & traverse directory (%s) failed.\r\n",
                cfgPath_.c_str());
    return false;
  }
  const auto entry = std::find_if(dcMap_.begin(), dcMap_.end(), [](const auto& _entry) {
    return _entry.second == "file" && isCaCfgFileName(_entry.first);
  });
  const std::string ca = entry == dcMap_.end() ? std::string() : caOfFileName(entry->first);
  if (ca.empty()) {
    traceLineIf(trace_,
                "<!= AutoGenerateCfg::getCA() ERROR: No qmrk logging configuration files where found in \"%s\"\r\n",
                cfgPath_.c_str());
    return false;
  }
  traceLineIf(trace_, "<== AutoGenerateCfg::getCA() CA found, customerAdaptation_=\"%s\"\r\n", ca.c_str());
  customerAdaptation_ = ca;
  return true;
}
