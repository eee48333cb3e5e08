// SPDX-License-Identifier: MIT
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/linux/file_descriptor.h"
#include "platform/status_pages.h"

namespace platform {

// The folders and files of status pages, which others made and may change at any time.

constexpr std::string_view statusUserFolderPrefix = "qmrk-";

/// The /dev/shm below a root; empty for the caller's own.
FileDescriptor openSharedMemory(const std::string& _root);

/// Opens a folder in one that is open. errno tells why it is not open.
FileDescriptor openFolderBelow(int _folder, const std::string& _name);

/// The pages of one user.
struct StatusUserFolder {
  FileDescriptor pages;
  std::uint32_t owner = 0;
};

/// @return noError with closed pages when there are none.
ErrorCode openStatusUserFolder(int _sharedMemory, const std::string& _name, bool _isOwnRoot, StatusUserFolder& _folder);

/// Opens a page that is a file of the owner, of the right size and closed to others.
ErrorCode openStatusPage(const StatusUserFolder& _folder, const std::string& _name, const StatusPageForm& _form,
                         FileDescriptor& _page, struct stat& _status);

/// The sequence number of a page.
bool readStatusSequence(int _page, const StatusPageForm& _form, std::uint64_t& _sequence);

/// Copies a page that nobody writes meanwhile; else errorBusy.
ErrorCode tryToCopyStatusPage(int _page, const StatusPageForm& _form, std::string& _bytes);

}  // namespace platform
