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

bool isTrustedFolder(int _folder) {
  struct stat status {};
  if (::fstat(_folder, &status) != 0) return false;
  if (status.st_uid == ::geteuid() && (status.st_mode & permissionBits) == ownerOnly) return true;
  errno = EACCES;
  return false;
}

FileDescriptor openFolder(const std::string& _path) {
  FileDescriptor folder(aboveStandardStreams(::open(_path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)));
  // A link, or something else than a folder, is not to be trusted either.
  if (!folder.isOpen() && (errno == ELOOP || errno == ENOTDIR)) errno = EACCES;
  return folder;
}

}  // namespace

std::string eventFolderPath() { return "/dev/shm/qmrk-" + std::to_string(::geteuid()); }

FileDescriptor openEventFolder(bool _create) {
  const std::string path = eventFolderPath();
  FileDescriptor folder = openFolder(path);
  // Whoever else makes the folder at this moment may not have set its mode yet; the umask would have to be odd for that
  // to matter.
  if (!folder.isOpen() && errno == ENOENT && _create && makeFolder(path)) folder = openFolder(path);
  if (folder.isOpen() && !isTrustedFolder(folder.get())) folder.reset();
  return folder;
}

}  // namespace platform
