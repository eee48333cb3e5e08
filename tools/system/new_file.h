// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace toolsystem {

/// Writes a file that must not exist, for everybody to read (mode 0644). A file that cannot be written whole is
/// removed again.
/// @param _path in the system's form.
/// @return 0, or a number of errno: EEXIST where anything stands at the path, a link too.
int writeNewFile(const std::string& _path, const std::string& _text);

/// Creates a folder and those above it that are missing, for everybody to enter (mode 0755).
/// @return 0, or a number of errno.
int makeFolders(const std::string& _path);

}  // namespace toolsystem
