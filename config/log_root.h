// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "config/cfg_data_manager.h"

namespace Quillmark_logging {

/// Appends a backslash and the file's COMMON_LOG_FILE_ROOT, or its default, to the user's folder.
/// @return whether the file has the key.
bool appendLogRoot(CfgDataManager& _manager, const std::string& _cfgFile, std::string& _path);

}  // namespace Quillmark_logging
