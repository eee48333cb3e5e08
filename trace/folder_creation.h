// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

/// Whether the path exists, as a file or a folder. Missing permissions are only traced.
bool checkIfFileDirectoryExists(const std::string& _fileWithPath);

/// Creates a folder and every missing one above it. Goes on after a failure.
/// @param _dir separated by backslashes or slashes; may end with one.
/// @return whether the last step of the path exists or was created (by this or, meanwhile, by another process).
bool createDirectory(const std::string& _dir);

/// Makes the path library accept every file name. Does nothing, since it accepts them all today.
void setBoostFileSystemNameCheck();

}  // namespace Quillmark_logging
