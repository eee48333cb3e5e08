// SPDX-License-Identifier: MIT
#include "logsetup/rotation_settings.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "config/cfg_lookup.h"
#include "logsetup/is_number.h"
#include "quillmark_logging_names.h"
#include "trace/trace_line.h"

namespace Quillmark_logging {
namespace {

void replaceUnlessNumber(std::string& _setting, const char* _name, const char* _default) {
  if (!isNumber(_setting)) {
    traceLine(
        "-!- Quillmark_logging::createApplicationSpecificLogFile() %s=%s is not a valid number, using default value "
        "%s.\r\n",
        _name, _setting.c_str(), _default);
    _setting = _default;
  }
}

}  // namespace

RotationSettings readRotationSettings(const std::string& _ca) {
  RotationSettings settings{DEFAULT_SPEC_LOG_FILE_LIMIT, DEFAULT_SPEC_NR_OF_LOG_FILES};
  if (!getCfgValue(SPEC_LOG_FILE_LIMIT, settings.fileLimit, _ca) ||
      !getCfgValue(SPEC_NR_OF_LOG_FILES, settings.nrOfFiles, _ca)) {
    traceLine("-!- Quillmark_logging::createApplicationSpecificLogFile() Using default values\r\n");
    return settings;
  }
  traceLine("--- Quillmark_logging::createApplicationSpecificLogFile() fileLimit=%s, nrOfFiles=%s\r\n",
            settings.fileLimit.c_str(), settings.nrOfFiles.c_str());
  replaceUnlessNumber(settings.fileLimit, "fileLimit", DEFAULT_SPEC_LOG_FILE_LIMIT);
  replaceUnlessNumber(settings.nrOfFiles, "nrOfFiles", DEFAULT_SPEC_NR_OF_LOG_FILES);
  return settings;
}

std::int32_t oneLessThan(const std::string& _setting) {
  using Limits = std::numeric_limits<std::int32_t>;
  // Not atoi itself, which is undefined for values out of range.
  const long value = std::strtol(_setting.c_str(), nullptr, 10);
  const long number = std::clamp<long>(value, Limits::min(), Limits::max());
  return number == Limits::min() ? Limits::max() : static_cast<std::int32_t>(number - 1);
}

}  // namespace Quillmark_logging
