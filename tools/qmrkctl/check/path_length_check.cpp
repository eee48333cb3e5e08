// SPDX-License-Identifier: MIT
#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/check/checks.h"
#include "tools/system/file_name.h"

namespace qmrkctl {
namespace {

namespace names = Quillmark_logging;

FindingPlace placeOfValue(const ConfigurationFile& _cfg, const char* _key) {
  const Setting* const setting = _cfg.isUsable() ? _cfg.setting(_key) : nullptr;
  return setting == nullptr ? placeOf(_cfg) : placeIn(_cfg, setting->valuePlace);
}

}  // namespace

bool checkPathLength(const Configuration& _configuration, const LogPlaces& _logs, Findings& _findings) {
  const std::size_t longest = toolsystem::longestPath();
  const std::size_t folder = platform::nativePath(_logs.folder).size();
  const std::size_t log = platform::nativePath(_logs.commonLog).size();
  if (folder <= longest && log <= longest) return true;
  const bool isOfFolder = folder > longest;
  const char* const key = isOfFolder ? names::COMMON_LOG_FILE_ROOT : names::COMMON_LOG_FILE_NAME;
  _findings.push_back(findingOf(isOfFolder ? "Q501" : "Q502", placeOfValue(_configuration.cfg, key),
                                "the path of the log" + std::string(isOfFolder ? " folder" : "") + " has " +
                                    std::to_string(isOfFolder ? folder : log) + " characters, of which " +
                                    std::to_string(longest) + " are possible",
                                "write a shorter " + std::string(key)));
  return false;
}

}  // namespace qmrkctl
