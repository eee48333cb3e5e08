// SPDX-License-Identifier: MIT
#include "platform/linux/open_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/linux/file_descriptor.h"
#include "platform/native_path.h"

namespace platform {
namespace {

constexpr mode_t configurationMode = 0644;
constexpr mode_t logMode = 0640;
constexpr mode_t writableByOthers = S_IWGRP | S_IWOTH;

// A link, unlike a file, leads others wherever its maker wants: to files of the user that the maker may not write.
bool mayHoldLinks(const std::string& _nativeFolder) {
  struct stat status {};
  if (::stat(_nativeFolder.c_str(), &status) != 0) return false;
  return (status.st_uid == ::geteuid() || status.st_uid == 0) && (status.st_mode & writableByOthers) == 0;
}

std::string folderOf(const std::string& _nativePath) {
  const std::size_t nameBegin = _nativePath.find_last_of('/');
  if (nameBegin == std::string::npos) return ".";
  return nameBegin == 0 ? "/" : _nativePath.substr(0, nameBegin);
}

int openUninterrupted(const std::string& _nativePath, int _flags, mode_t _mode) {
  int file = -1;
  do {
    file = ::open(_nativePath.c_str(), _flags, _mode);
  } while (file == -1 && errno == EINTR);
  return file;
}

int openLog(const std::string& _nativePath, int _flags) {
  const int file = openUninterrupted(_nativePath, _flags | O_NOFOLLOW, logMode);
  if (file != -1 || errno != ELOOP) return file;
  if (mayHoldLinks(folderOf(_nativePath))) return openUninterrupted(_nativePath, _flags, logMode);
  errno = EACCES;
  return -1;
}

bool isRegular(int _file) {
  struct stat status {};
  if (::fstat(_file, &status) != 0) return false;
  errno = S_ISDIR(status.st_mode) ? EISDIR : EACCES;
  return S_ISREG(status.st_mode);
}

}  // namespace

int aboveStandardStreams(int _file) {
  if (_file == -1 || _file > STDERR_FILENO) return _file;
  const int moved = ::fcntl(_file, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  const int error = errno;
  closeDescriptor(_file);
  errno = error;
  return moved;
}

int openFile(const std::string& _path, int _flags, FileRole _role) {
  const std::string path = nativePath(_path);
  const int flags = _flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  FileDescriptor file(_role == FileRole::log ? openLog(path, flags)
                                             : openUninterrupted(path, flags, configurationMode));
  if (!file.isOpen() || !isRegular(file.get())) return -1;
  return aboveStandardStreams(file.release());
}

}  // namespace platform
