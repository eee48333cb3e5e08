// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace toolsystem {

/// Lets those who may write in a folder as its owner or group write a new file in it too, so that what root or one
/// engineer has made does not lock the others out. The file gets the folder's owner, which only root can give, and its
/// group; where the group may write in the folder, it may read and write the file. Whoever else may write in the folder
/// gets nothing.
/// @param _path of the file, in the system's form.
/// @param _file open, and made by this program.
void shareWithFolder(const std::string& _path, int _file);

}  // namespace toolsystem
