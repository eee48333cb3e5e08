// SPDX-License-Identifier: MIT
#include "tools/system/appended_line.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/linux/file_descriptor.h"
#include "platform/native_path.h"
#include "tools/system/linux/folder_share.h"

namespace toolsystem {
namespace {

using platform::FileDescriptor;

constexpr mode_t recordMode = 0644;
constexpr int appendFlags = O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

FileFailure failureOf(const std::string& _what, int _error) {
  return {_what + ": " + std::generic_category().message(_error),
          _error == EACCES || _error == EPERM || _error == EROFS || _error == ELOOP,
          _error == ENOENT || _error == ENOTDIR};
}

// Some may write a log but not read it: nobody can tell them how it ends.
int openLog(const std::string& _path) {
  const int file = ::open(_path.c_str(), O_RDWR | appendFlags);
  return file == -1 && errno == EACCES ? ::open(_path.c_str(), O_WRONLY | appendFlags) : file;
}

int openRecords(const std::string& _path) {
  constexpr int flags = O_RDWR | appendFlags;
  int file = ::open(_path.c_str(), flags | O_CREAT | O_EXCL, recordMode);
  if (file != -1) {
    shareWithFolder(_path, file);
  } else if (errno == EEXIST) {
    file = ::open(_path.c_str(), flags);
  }
  return file;
}

bool endsWithLine(int _file, off_t _size) {
  char last = 0;
  return _size == 0 || ::pread(_file, &last, 1, _size - 1) != 1 || last == '\n';
}

std::optional<FileFailure> append(const std::string& _path, int _file, off_t _size, const std::string& _line) {
  const std::string bytes = endsWithLine(_file, _size) ? _line : "\n" + _line;
  const ssize_t size = ::write(_file, bytes.data(), bytes.size());
  if (size == static_cast<ssize_t>(bytes.size())) return std::nullopt;
  return failureOf("cannot append to " + _path, size < 0 ? errno : ENOSPC);
}

}  // namespace

std::optional<FileFailure> appendToLog(const std::string& _path, const std::string& _line,
                                       std::optional<std::uint32_t> _owner) {
  const std::string path = platform::nativePath(_path);
  const FileDescriptor file(openLog(path));
  struct stat status {};
  if (!file.isOpen() || ::fstat(file.get(), &status) != 0) return failureOf("cannot open " + path, errno);
  if (!S_ISREG(status.st_mode)) return FileFailure{path + " is no regular file", false, false};
  if (_owner && status.st_uid != *_owner) return FileFailure{path + " belongs to another user", true, false};
  return append(path, file.get(), status.st_size, _line);
}

std::optional<FileFailure> appendRecord(const std::string& _path, const std::string& _line) {
  const std::string path = platform::nativePath(_path);
  const FileDescriptor file(openRecords(path));
  struct stat status {};
  if (!file.isOpen() || ::fstat(file.get(), &status) != 0) return failureOf("cannot open " + path, errno);
  if (!S_ISREG(status.st_mode)) return FileFailure{path + " is no regular file", false, false};
  return append(path, file.get(), status.st_size, _line);
}

}  // namespace toolsystem
