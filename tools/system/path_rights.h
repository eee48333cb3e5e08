// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tools/system/account.h"

namespace toolsystem {

/// What a user may do with a file or folder.
struct PathRights {
  bool exists = false;  ///< and the user gets as far as it
  bool isReadable = false;
  bool isWritable = false;
};

/// The rights of an account, one for each path in the system's form. The system itself is asked in the name of the
/// account where this program may do that (as root, or for the running user); else the rights come from the mode bits
/// of the file and its folders.
/// @param _root the folder by which the files of another file system are reached; else empty.
std::vector<PathRights> rightsOn(const std::vector<std::string>& _paths, const Account& _account,
                                 const std::string& _root);

}  // namespace toolsystem
