// SPDX-License-Identifier: MIT
#include "tools/system/new_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "tools/system/linux/folder_share.h"

namespace toolsystem {
namespace {

constexpr mode_t fileMode = 0644;
constexpr mode_t folderMode = 0755;

int writeAll(int _file, const std::string& _text) {
  for (std::size_t done = 0; done < _text.size();) {
    const ssize_t written = ::write(_file, _text.data() + done, _text.size() - done);
    if (written == -1 && errno != EINTR) return errno;
    if (written > 0) done += static_cast<std::size_t>(written);
  }
  return ::fsync(_file) == 0 ? 0 : errno;
}

}  // namespace

int writeNewFile(const std::string& _path, const std::string& _text) {
  const int file = ::open(_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, fileMode);
  if (file == -1) return errno;
  // Not less by the umask.
  const int error = ::fchmod(file, fileMode) == 0 ? writeAll(file, _text) : errno;
  if (error == 0) shareWithFolder(_path, file);
  ::close(file);
  if (error != 0) ::unlink(_path.c_str());
  return error;
}

int makeFolders(const std::string& _path) {
  for (std::size_t end = _path.find('/', 1);; end = _path.find('/', end + 1)) {
    const std::string folder = _path.substr(0, end);
    if (::mkdir(folder.c_str(), folderMode) == 0) {
      if (::chmod(folder.c_str(), folderMode) != 0) return errno;
    } else if (struct stat status{}; ::stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) {
      return errno == EEXIST ? ENOTDIR : errno;
    }
    if (end == std::string::npos) return 0;
  }
}

}  // namespace toolsystem
