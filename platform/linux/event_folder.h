// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/linux/file_descriptor.h"

namespace platform {

/// The folder of the user's named events, /dev/shm/qmrk-<effective user id>. /dev/shm is open to everybody, so what
/// stands there under that name is trusted only if it is a folder, not a link, owned by the user and closed to others.
std::string eventFolderPath();

/// A folder of named events, and the user to whom it and its files must belong.
struct EventFolder {
  std::string path;
  std::uint32_t owner;
};

EventFolder ownEventFolder();

/// Opens the folder, here and below only if it is to be trusted.
/// @param _create creates it, with mode 0700 whatever the umask, if it is missing.
/// @return not open on failure; errno says why, EACCES when the folder is not to be trusted.
FileDescriptor openEventFolder(const EventFolder& _folder, bool _create);

}  // namespace platform
