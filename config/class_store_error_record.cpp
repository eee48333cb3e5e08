// SPDX-License-Identifier: MIT
#include "config/class_store_error_record.h"

#include "config/cfg_data_manager.h"
#include "config/qmrk_info_file.h"
#include "platform/access.h"
#include "quillmark_logging_names.h"

namespace Quillmark_logging {

std::string errorRecordText(const std::string& _ca, const std::string& _text, const std::string& _caller) {
  const std::string record = _text + " [" + _ca + "] ";
  return _caller.empty() ? record : record + "[Called by " + _caller + "]";
}

}  // namespace Quillmark_logging

bool CfgDataManager::writeErrorRecord(const std::string& _ca, const std::string& _text, const std::string& _caller) {
  std::string root;
  if (!getLogRootPath(root, _ca)) return false;
  const std::string file = root + Quillmark_logging::ERROR_INFO_FILE_NAME;
  if (platform::isAccessible(file, platform::Access::exists) &&
      !platform::isAccessible(file, platform::Access::write)) {
    return false;
  }
  const std::string text = Quillmark_logging::errorRecordText(_ca, _text, _caller);
  return Quillmark_logging::appendRecord(file, text) == Quillmark_logging::RecordResult::written;
}
