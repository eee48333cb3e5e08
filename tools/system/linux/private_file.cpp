// SPDX-License-Identifier: MIT
#include "tools/system/private_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace toolsystem {
namespace {

int writePrivateBytes(int _file, std::string_view _bytes) {
  while (!_bytes.empty()) {
    const ssize_t size = ::write(_file, _bytes.data(), _bytes.size());
    if (size == -1 && errno == EINTR) continue;
    if (size == -1) return errno;
    _bytes.remove_prefix(static_cast<std::size_t>(size));
  }
  return ::fsync(_file) == 0 ? 0 : errno;
}

// Unlike a plain rename, neither replaces what came meanwhile. Some file systems, such as those of USB sticks, have no
// links, others no such rename.
int renamePrivateFile(const std::string& _begun, const std::string& _path) {
  if (::renameat2(AT_FDCWD, _begun.c_str(), AT_FDCWD, _path.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  return ::linkat(AT_FDCWD, _begun.c_str(), AT_FDCWD, _path.c_str(), 0) == 0 ? 0 : errno;
}

}  // namespace

int writePrivateFile(const std::string& _path, std::string_view _bytes) {
  struct stat facts {};
  if (::lstat(_path.c_str(), &facts) == 0) return EEXIST;
  const std::string begun = _path + "." + std::to_string(::getpid());
  const int file = ::open(begun.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (file == -1) return errno;
  int error = writePrivateBytes(file, _bytes);
  if (::close(file) != 0 && error == 0) error = errno;
  if (error == 0) error = renamePrivateFile(begun, _path);
  ::unlink(begun.c_str());
  return error;
}

}  // namespace toolsystem
