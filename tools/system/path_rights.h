// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tools/system/account.h"

namespace toolsystem {

/// What a user may do with a file or folder.
struct PathRights {
  bool exists = false;  ///< and the user may reach it
  bool isReadable = false;
  bool isWritable = false;  ///< of a folder: files can be created in it
};

/// The rights of an account on each path (in the system's form). Asks the system on behalf of the account if this
/// program may (as root, or for the current user); otherwise derives them from mode bits of file and folders.
/// @param _root the folder through which another file system is reached; else empty.
std::vector<PathRights> rightsOn(const std::vector<std::string>& _paths, const Account& _account,
                                 const std::string& _root);

}  // namespace toolsystem
