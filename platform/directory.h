// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/errors.h"

namespace platform {

/// CreateDirectoryA with default security (on Linux mkdir with mode 0750 less the umask): creates one folder, whose
/// parent must exist. A final separator is allowed.
/// @param _error receives noError on success, else the last error code.
/// @return whether the folder was created by this call.
bool createFolder(const std::string& _path, ErrorCode& _error);

}  // namespace platform
