// SPDX-License-Identifier: MIT
#include "diagnostics/module_version_text.h"

#include "platform/module_version.h"

namespace Quillmark_logging {

bool ModuleVersion::load(const char* _module) {
  platform::FixedVersion version;
  if (!platform::readModuleVersion(_module, version)) {
    return false;
  }
  fileVersion_ = numbersOf(version.fileMostSignificant, version.fileLeastSignificant);
  productVersion_ = numbersOf(version.productMostSignificant, version.productLeastSignificant);
  loaded_ = true;
  return true;
}

std::string ModuleVersion::fileVersionString() const {
  if (!loaded_) {
    return "Not initialized";
  }
  std::string text;
  for (const std::uint32_t number : fileVersion_) {
    text += (text.empty() ? "" : ".") + std::to_string(number);
  }
  return text;
}

ModuleVersion::Numbers ModuleVersion::numbersOf(std::uint32_t _mostSignificant, std::uint32_t _leastSignificant) {
  return {_mostSignificant >> 16, _mostSignificant & 0xFFFF, _leastSignificant >> 16, _leastSignificant & 0xFFFF};
}

}  // namespace Quillmark_logging
