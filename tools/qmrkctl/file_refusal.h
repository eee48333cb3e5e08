// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tools/system/replaced_file.h"

namespace qmrkctl {

/// Says why a file could not be changed, and who may, or how others get the right to.
/// @param _path of the file, with separators of either kind.
/// @return the code to end with.
int refuseFile(const toolsystem::FileFailure& _failure, const std::string& _path);

/// Says why a file that is there could not be read, and who may.
/// @param _path with separators of either kind.
/// @param _command what to run with more rights: "qmrkctl history".
/// @return the code to end with.
int refuseUnread(const std::string& _path, const std::string& _command);

}  // namespace qmrkctl
