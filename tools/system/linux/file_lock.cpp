// SPDX-License-Identifier: MIT
#include "tools/system/file_lock.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/linux/record_lock.h"
#include "platform/native_path.h"
#include "tools/system/end_request.h"

namespace toolsystem {
namespace {

constexpr std::chrono::milliseconds lockPause(5);
constexpr mode_t readAndWrite = 0666;

// Who may write in the folder may lock.
void adoptFolder(const std::string& _path, int _file) {
  struct stat folder {};
  const std::string name = _path.substr(0, _path.find_last_of('/') + 1);
  if (::stat(name.c_str(), &folder) != 0) return;
  // Only root can give the file away; a user's own is his anyway, and in a group's folder it is the group's.
  if (::fchown(_file, folder.st_uid, folder.st_gid) != 0 && ::fchown(_file, static_cast<uid_t>(-1), folder.st_gid) != 0)
    return;
  ::fchmod(_file, (folder.st_mode & 0222U) | ((folder.st_mode & 0222U) << 1U & readAndWrite));
}

int openLock(const std::string& _path) {
  constexpr int flags = O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
  int file = ::open(_path.c_str(), flags | O_CREAT | O_EXCL, 0600);
  if (file != -1) {
    adoptFolder(_path, file);
  } else if (errno == EEXIST) {
    file = ::open(_path.c_str(), flags);
  }
  return file;
}

}  // namespace

FileLock::FileLock(const std::string& _path, std::chrono::milliseconds _longest) {
  const std::string path = platform::nativePath(_path);
  file_ = openLock(path);
  if (file_ == -1) {
    const int error = errno;
    failure_ = FileFailure{"cannot lock " + path + ": " + std::generic_category().message(error),
                           error == EACCES || error == EPERM || error == EROFS, error == ENOENT || error == ENOTDIR};
    return;
  }
  const auto end = std::chrono::steady_clock::now() + _longest;
  for (;;) {
    isHeld_ = platform::tryRecordLock(static_cast<int>(file_), 0, platform::RecordLock::exclusive);
    if (isHeld_ || std::chrono::steady_clock::now() >= end || !sleepUnlessEnded(lockPause)) return;
  }
}

FileLock::~FileLock() {
  if (file_ != -1) ::close(static_cast<int>(file_));
}

}  // namespace toolsystem
