// SPDX-License-Identifier: MIT
#include "platform/linux/open_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "platform/native_path.h"

namespace platform {
int aboveStandardStreams(int _file) {
  if (_file == -1 || _file > STDERR_FILENO) return _file;
  const int moved = ::fcntl(_file, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  const int error = errno;
  ::close(_file);
  errno = error;
  return moved;
}

int openFile(const std::string& _path, int _flags) {
  const std::string path = nativePath(_path);
  int file = -1;
  do {
    file = ::open(path.c_str(), _flags | O_CLOEXEC | O_NOCTTY, 0666);
  } while (file == -1 && errno == EINTR);
  return aboveStandardStreams(file);
}

}  // namespace platform
