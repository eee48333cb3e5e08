// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/linux/file_descriptor.h"

namespace platform {

/// The folder of the user's named events, /dev/shm/qmrk-<effective user id>. /dev/shm is open to everybody, so what
/// stands there under that name is trusted only if it is a folder, not a link, owned by the user and closed to others.
std::string eventFolderPath();

/// Opens the folder.
/// @param _create creates it, with mode 0700 whatever the umask, if it is missing.
/// @return not open on failure; errno says why, EACCES when the folder is not to be trusted.
FileDescriptor openEventFolder(bool _create);

}  // namespace platform
