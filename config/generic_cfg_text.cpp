// SPDX-License-Identifier: MIT
#include "config/generic_cfg_text.h"

#include "config/cfg_file_name.h"
#include "config/text_replacement.h"
#include "quillmark_logging_names.h"

namespace Quillmark_logging {

std::string genericCfgText(const std::string& _ca) {
  std::string text = "# CA Settings [file auto generated at [TIME] [DATE]]\n";
  text += std::string(CA_NR) + "=" + GENERIC_CA + "\n";
  text += std::string(REDIRECT_CA_NR) + "=CAXXX\n";
  // A fixed time, the same in every generated file: required.
  text = replaceAll(text, "[TIME]", "12:41:20");
  text = replaceAll(text, "[DATE]", "Jan 12 2007");
  return replaceAll(text, "CAXXX", _ca);
}

bool isCaCfgFileName(const std::string& _name) {
  const std::string beginning = cfgFileName(CFG_FILE_NAME, "CA");
  return _name.find(beginning.substr(0, beginning.rfind('.'))) != std::string::npos &&
         _name.find(".cfg") != std::string::npos;
}

std::string caOfFileName(const std::string& _name) {
  const std::size_t begin = _name.find_first_of("CA");
  const std::size_t end = _name.find('.');
  if (begin == std::string::npos || end == std::string::npos || end < begin) return "";
  return _name.substr(begin, end - begin);
}

}  // namespace Quillmark_logging
