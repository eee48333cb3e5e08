// SPDX-License-Identifier: MIT
#include "tools/system/log_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/native_path.h"

namespace toolsystem {
namespace {

FileId idOf(int _folder, const char* _path, int _flags) {
  struct statx facts {};
  if (::statx(_folder, _path, _flags, STATX_INO | STATX_BTIME | STATX_TYPE, &facts) != 0) return {};
  FileId id;
  id.volume = (std::uint64_t{facts.stx_dev_major} << 32U) | facts.stx_dev_minor;
  id.file = facts.stx_ino;
  if ((facts.stx_mask & STATX_BTIME) != 0) {
    constexpr std::uint64_t nanoseconds = 1'000'000'000;
    id.created = static_cast<std::uint64_t>(facts.stx_btime.tv_sec) * nanoseconds + facts.stx_btime.tv_nsec;
  }
  return id;
}

OpenResult failure(int _error) {
  if (_error == ENOENT || _error == ENOTDIR) return OpenResult::missing;
  return _error == EACCES || _error == EPERM ? OpenResult::denied : OpenResult::unreadable;
}

}  // namespace

OpenResult LogFile::open(const std::string& _path) {
  close();
  const int file = ::open(platform::nativePath(_path).c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
  if (file == -1) return failure(errno);
  struct stat facts {};
  const bool isRegular = ::fstat(file, &facts) == 0 && S_ISREG(facts.st_mode);
  const FileId id = isRegular ? idOf(file, "", AT_EMPTY_PATH) : FileId();
  if (id == FileId()) {
    ::close(file);
    return OpenResult::unreadable;
  }
  path_ = _path;
  descriptor_ = file;
  id_ = id;
  return OpenResult::opened;
}

std::int64_t LogFile::size() const {
  struct stat facts {};
  return descriptor_ != -1 && ::fstat(descriptor_, &facts) == 0 ? facts.st_size : -1;
}

std::size_t LogFile::readAt(std::int64_t _offset, char* _buffer, std::size_t _size) const {
  if (descriptor_ == -1) return 0;
  const ssize_t size = ::pread(descriptor_, _buffer, _size, _offset);
  return size > 0 ? static_cast<std::size_t>(size) : 0;
}

void LogFile::close() {
  if (descriptor_ != -1) ::close(descriptor_);
  descriptor_ = -1;
  id_ = {};
}

void LogFile::swap(LogFile& _other) noexcept {
  std::swap(path_, _other.path_);
  std::swap(id_, _other.id_);
  std::swap(descriptor_, _other.descriptor_);
}

FileId fileIdAt(const std::string& _path) { return idOf(AT_FDCWD, platform::nativePath(_path).c_str(), 0); }

}  // namespace toolsystem
