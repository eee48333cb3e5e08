// SPDX-License-Identifier: MIT
#include "config/cfg_data_manager.h"
#include "platform/access.h"
#include "platform/text_file.h"
#include "trace/trace_line.h"

using Quillmark_logging::traceLineIf;

bool CfgDataManager::getEnabledLogClasses(const std::string& _ca, std::string& _logClasses) {
  platform::TextPieces pieces;
  if (!_logClasses.empty()) pieces.push_back(_logClasses);
  if (!getEnabledLogClasses(_ca, pieces)) return false;
  _logClasses = platform::joined(pieces);
  return true;
}

bool CfgDataManager::getEnabledLogClasses(const std::string& _ca, platform::TextPieces& _logClasses) {
  traceLineIf(tracing(), "==> CfgDataManager::getEnabledLogClasses() _ca=\"%s\"\r\n", _ca.c_str());
  std::string path;
  if (!getQmrkCfgFilePath(path, _ca, false)) {
    writeErrorRecord(_ca, "Failed to get path to the enabled log class/es file.", "");
    traceLineIf(tracing(),
                "<!= CfgDataManager::getEnabledLogClasses() ERROR: Failed to get path to the enabled log class/es "
                "file.\r\n");
    return false;
  }
  platform::TextReader file(path);
  if (!file.isOpen()) {
    writeErrorRecord(_ca, "Failed to open file " + path, "");
    traceLineIf(tracing(), "<!= CfgDataManager::getEnabledLogClasses() ERROR: Failed to open file %s\r\n",
                path.c_str());
    return false;
  }
  // An open file may still be denied: its rights can change meanwhile.
  if (!platform::isAccessible(path, platform::Access::read)) {
    writeErrorRecord(_ca, "The file " + path + " doesn't have READ permission.", "");
    return false;
  }
  if (!file.readAll(_logClasses)) {
    writeErrorRecord(_ca, "Failed to open file " + path, "");
    traceLineIf(tracing(), "<!= CfgDataManager::getEnabledLogClasses() ERROR: Failed to open file %s\r\n",
                path.c_str());
    return false;
  }
  if (_logClasses.empty()) {
    traceLineIf(tracing(), "<== CfgDataManager::getEnabledLogClasses() Logging is disabled.\r\n");
  } else if (tracing()) {
    traceLineIf(true, "<== CfgDataManager::getEnabledLogClasses() Enabled log classes: \"%s\"\r\n",
                platform::joined(_logClasses).c_str());
  }
  return true;
}

bool CfgDataManager::setEnabledLogClasses(const std::string& _ca, const std::string& _logClasses) {
  traceLineIf(tracing(), "==> CfgDataManager::setEnabledLogClasses() _ca=\"%s\", _logClasses=\"%s\"\r\n", _ca.c_str(),
              _logClasses.c_str());
  std::string path;
  if (!getQmrkCfgFilePath(path, _ca, false) || _logClasses.empty()) {
    // The line about the path is required for a refused empty list as well.
    traceLineIf(tracing(),
                "<!= CfgDataManager::setEnabledLogClasses() ERROR: Failed to get path to the enabled log class/es "
                "file.\r\n");
    return false;
  }
  platform::TextWriter file(path, platform::TextWriter::Mode::truncate);
  if (!file.write(_logClasses)) {
    std::string text = "Failed to open file " + path;
    if (!platform::isAccessible(path, platform::Access::write)) text += ".The doesn't have WRITE permission.";
    writeErrorRecord(_ca, text, "");
    traceLineIf(tracing(), "<!= CfgDataManager::setEnabledLogClasses() ERROR: Failed to open file %s\r\n",
                path.c_str());
    return false;
  }
  traceLineIf(tracing(),
              "<== CfgDataManager::setEnabledLogClasses() Enabled log class/es updated, new value \"%s\"\r\n",
              _logClasses.c_str());
  return true;
}
