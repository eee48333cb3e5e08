// SPDX-License-Identifier: MIT
#include "diagnostics/os_info.h"

#include "config/cfg_lookup.h"
#include "platform/console.h"
#include "platform/text_file.h"
#include "quillmark_logging.h"
#include "quillmark_logging_names.h"
#include "trace/trace_line.h"

namespace Quillmark_logging {
namespace {

class RunningSystem : public SystemFacts {
 public:
  bool queryVersion(platform::VersionQuery _query, platform::VersionBlock& _block) override {
    return platform::queryVersion(_query, _block);
  }
  bool registryKeyExists(const std::string& _key) override { return platform::registryKeyExists(_key); }
  platform::RegistryResult readRegistryText(const std::string& _key, const std::string& _value,
                                            std::string& _text) override {
    return platform::readRegistryText(_key, _value, _text);
  }
  void printToConsole(const std::string& _text) override { platform::writeConsole(_text); }
};

}  // namespace

bool getOSDescription(std::string& _text) {
  RunningSystem system;
  return describeSystem(system, _text);
}

bool writeOSInfo(const std::string& _ca) {
  RunningSystem system;
  return writeOSInfo(_ca, system);
}

bool writeOSInfo(const std::string& _ca, SystemFacts& _facts) {
  traceLine("==> Quillmark_logging::writeOSInfo() _ca=%s\r\n", _ca.c_str());
  std::string folder;
  if (!getCommonLogFilePath(folder, _ca)) return false;
  std::string name;
  if (!getCfgValue(COMMON_LOG_FILE_NAME, name, _ca)) return false;
  const std::string path = folder + "\\" + name;
  platform::TextWriter file(path, platform::TextWriter::Mode::append);
  if (!file.isOpen()) {
    traceLine("<!= Quillmark_logging::writeOSInfo() ERROR: Failed to open file %s\r\n", path.c_str());
    return false;
  }
  std::string description;
  if (!describeSystem(_facts, description)) {
    traceLine("<!= Quillmark_logging::writeOSInfo() ERROR: Failed to get OS information.\r\n");
    return false;
  }
  const std::string lineEnd = platform::endsInsideLine(path) ? "\n" : "";
  if (!file.write(lineEnd + description + "\n\n")) {
    traceLine("<!= Quillmark_logging::writeOSInfo() ERROR: Failed to open file %s\r\n", path.c_str());
    return false;
  }
  traceLine("<== Quillmark_logging::writeOSInfo() OS information is written to file %s\r\n", path.c_str());
  return true;
}

}  // namespace Quillmark_logging
