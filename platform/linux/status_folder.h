// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

#include "platform/linux/file_descriptor.h"

namespace platform {

/// The folder of the status pages of the user's processes, below that of the named events.
std::string statusFolderPath();

/// Opens it; it is created with mode 0700, whatever the umask, if it is missing.
/// @return not open on failure, which includes one that is a link, another user's or open to others.
FileDescriptor openStatusFolder();

/// Removes the pages of processes that do not run any more.
/// @param _namespaceOffset where a page names the PID namespace in which its id counts; those of others are left.
void removeStalePages(const FileDescriptor& _folder, std::size_t _namespaceOffset);

}  // namespace platform
