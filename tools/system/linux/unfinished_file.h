// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/linux/file_descriptor.h"

namespace toolsystem {

/// A new file without content, which is to take the name of another one in its folder. Its writer holds a lock on it
/// (flock) that ends with him, so that one without a lock is known as left by a program that was killed.
/// @param _folder without a slash at its end.
/// @param[out] _path of the file.
/// @return no open file on failure, with errno.
platform::FileDescriptor makeUnfinishedFile(const std::string& _folder, std::string& _path);

/// Removes from a folder what programs that were killed have left unfinished.
void removeAbandonedFiles(const std::string& _folder);

}  // namespace toolsystem
