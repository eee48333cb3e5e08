// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace toolsystem {

/// Writes a new file that everybody may read (mode 0644 on Linux, whatever the umask). Never leaves a partial file. On
/// Linux those who may write in its folder as its owner or group may write the file, too.
/// @param _path in the system's form.
/// @param _text each "\n" becomes the system's line end.
/// @return 0, or an errno value: EEXIST if anything is at the path, even a dangling link.
int writeNewFile(const std::string& _path, const std::string& _text);

/// Creates a folder and the missing ones above it, which everybody may enter (mode 0755 on Linux, whatever the umask).
/// @param _path in the system's form.
/// @return 0, or an errno value. Folders created before a failure stay.
int makeFolders(const std::string& _path);

}  // namespace toolsystem
