// SPDX-License-Identifier: MIT
#include "tools/system/linux/folder_share.h"

#include <sys/stat.h>
#include <unistd.h>

namespace toolsystem {

void shareWithFolder(const std::string& _path, int _file) {
  struct stat folder {};
  struct stat file {};
  const std::size_t end = _path.find_last_of('/');
  const std::string name = end == std::string::npos ? "." : _path.substr(0, end + 1);
  if (::stat(name.c_str(), &folder) != 0 || ::fstat(_file, &file) != 0) return;
  const bool hasGroup =
      ::fchown(_file, folder.st_uid, folder.st_gid) == 0 || ::fchown(_file, static_cast<uid_t>(-1), folder.st_gid) == 0;
  if (hasGroup && (folder.st_mode & S_IWGRP) != 0) ::fchmod(_file, (file.st_mode & 07777U) | S_IRGRP | S_IWGRP);
}

}  // namespace toolsystem
