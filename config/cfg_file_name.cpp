// SPDX-License-Identifier: MIT
#include "config/cfg_file_name.h"

#include "quillmark_logging_names.h"

namespace Quillmark_logging {

std::string cfgFileName(const std::string& _pattern, const std::string& _ca) {
  std::string name = _pattern;
  return name.replace(name.find('X'), sizeof CA_PLACEHOLDER - 1, _ca);
}

}  // namespace Quillmark_logging
