// SPDX-License-Identifier: MIT
#include "platform/linux/event_folder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/linux/open_file.h"

namespace platform {
namespace {

constexpr mode_t ownerOnly = 0700;
constexpr mode_t permissionBits = 07777;

bool makeFolder(const std::string& _path) {
  if (::mkdir(_path.c_str(), ownerOnly) != 0) return errno == EEXIST;
  // The umask may have taken bits away. Nobody else can have replaced the folder: /dev/shm is sticky.
  return ::chmod(_path.c_str(), ownerOnly) == 0;
}

bool isTrustedFolder(int _folder, uid_t _owner) {
  struct stat status {};
  if (::fstat(_folder, &status) != 0) return false;
  if (status.st_uid == _owner && (status.st_mode & permissionBits) == ownerOnly) return true;
  errno = EACCES;
  return false;
}

// Opens a folder for its owner whose creator has not come to do so yet, or was killed before.
bool isMadeAccessible(const std::string& _path) {
  struct stat status {};
  if (::lstat(_path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != ::geteuid()) return false;
  const mode_t mode = status.st_mode & permissionBits;
  return mode != ownerOnly && (mode & ~ownerOnly) == 0 && ::chmod(_path.c_str(), ownerOnly) == 0;
}

FileDescriptor openFolder(const std::string& _path) {
  FileDescriptor folder(aboveStandardStreams(::open(_path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)));
  // A link, or something else than a folder, is not to be trusted either.
  if (!folder.isOpen() && (errno == ELOOP || errno == ENOTDIR)) errno = EACCES;
  return folder;
}

}  // namespace

std::string eventFolderPath() { return "/dev/shm/qmrk-" + std::to_string(::geteuid()); }

EventFolder ownEventFolder() { return {eventFolderPath(), ::geteuid()}; }

FileDescriptor openEventFolder(const EventFolder& _folder, bool _create) {
  const auto isTrusted = [&_folder](const FileDescriptor& _opened) {
    return _opened.isOpen() && isTrustedFolder(_opened.get(), _folder.owner);
  };
  FileDescriptor folder = openFolder(_folder.path);
  if (!folder.isOpen() && errno == ENOENT && _create && makeFolder(_folder.path)) folder = openFolder(_folder.path);
  if (isTrusted(folder)) return folder;
  if (errno != EACCES) return FileDescriptor();
  // Root can open a folder whatever its mode. What belongs to others is left alone: they can put a link in its place.
  if (_folder.owner == ::geteuid() && isMadeAccessible(_folder.path)) folder = openFolder(_folder.path);
  if (isTrusted(folder)) return folder;
  errno = EACCES;
  return FileDescriptor();
}

}  // namespace platform
