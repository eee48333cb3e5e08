// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/linux/file_descriptor.h"

namespace platform {

/// The folder of the user's named events, /dev/shm/qmrk-<effective user id>. /dev/shm is open to everybody, so what
/// stands there under that name is trusted only when it is a folder, no link, of the user's own and closed to others.
std::string eventFolderPath();

/// Opens the folder.
/// @param _create makes it, with mode 0700 whatever the umask, when it is missing.
/// @return not open on failure; errno tells why, EACCES when the folder is not to be trusted.
FileDescriptor openEventFolder(bool _create);

}  // namespace platform
